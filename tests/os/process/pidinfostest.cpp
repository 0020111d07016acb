#include "os/process/processqueries.h"

#include "tests/desktop/harness/desktoptest.h"
#include "tests/os/desktopentry/session.h"
#include "tests/os/process/windowclients.h"
#include "tests/support/testprogram.h"

using namespace osUtils::Process;
using namespace TestSupport;

namespace {

/// The client's file, whose name is as short as the kernel's.
const std::string clientPath = WINDOW_CLIENT;
const std::string clientName = "os-windowclient";

pidInfos infosOf(int process)
{
    pidInfos info{.pid = process, .path = "/before", .name = "before"};
    getPidInfos(&info);
    return info;
}

bool isListed(const Desktop& desktop, xcb_window_t window)
{
    return window != XCB_NONE && numbersOfRoot(desktop.x, "_NET_CLIENT_LIST").contains(window);
}

}

/// What programs with windows are called, where they lie and which desktop entry is theirs.
class PidInfosTest : public DesktopTest {
    Q_OBJECT

private slots:
    void anApplicationIsDescribedByItsEntry_data();
    void anApplicationIsDescribedByItsEntry();
    void withoutAnEntryAnApplicationIsCalledByItsClass();
    void anEntryWithoutANameLendsItsId();
    void aWindowClassIsTwoTexts_data();
    void aWindowClassIsTwoTexts();
    void anExecutableIsKnownByItsPathUntilAfterItsRemoval_data();
    void anExecutableIsKnownByItsPathUntilAfterItsRemoval();
    void anApplicationWithoutAnyNameIsLikeABackgroundProcess();
    void anApplicationIsKnownWhateverItsWindowTells_data();
    void anApplicationIsKnownWhateverItsWindowTells();
    void withoutAWindowManagerThereAreNoApplications();
    void theFirstListedWindowTells();
    void aListedWindowThatIsGoneIsPassedOver();
    void theEntrysIdOutlivesTheCall();
    void withoutAnEntryTheIdStaysAsItWas();

private:
    [[nodiscard]] bool prepare(const QByteArray& managerName = "openbox");
    /// Lists windows as a window manager does.
    void list(const QList<uint32_t>& windows) const
    {
        setNumbers(desktop->x, desktop->x.root(), "_NET_CLIENT_LIST", windows);
    }

    std::optional<Session> session;
};

bool PidInfosTest::prepare(const QByteArray& managerName)
{
    qputenv("DISPLAY", desktop->display);
    session.emplace();
    session->set("LANGUAGE", "C");
    return startWindowManager(managerName);
}

void PidInfosTest::anApplicationIsDescribedByItsEntry_data()
{
    QTest::addColumn<QByteArrayList>("told");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("more");
    QTest::addColumn<std::string>("id");

    const auto row = [](const char* tag, const QByteArrayList& told, const char* file,
                        const char* more, const char* id) {
        QTest::newRow(tag) << told << QString(file) << QByteArray(more) << std::string(id);
    };
    row("window class in the entry", {"WM_CLASS=paint|Paint-2|"}, "painter.desktop",
        "StartupWMClass=Paint-2\n", "painter");
    row("entry named for KDE", {"WM_CLASS=a|B|", "_KDE_NET_WM_DESKTOP_FILE=org.example.Painter"},
        "org.example.Painter.desktop", "", "org.example.Painter");
    row("entry named for GNOME", {"WM_CLASS=a|B|", "_GTK_APPLICATION_ID=org.example.Painter"},
        "org.example.Painter.desktop", "", "org.example.Painter");
    row("entry in a subfolder", {"_KDE_NET_WM_DESKTOP_FILE=kde4-painter"}, "kde4/painter.desktop",
        "", "kde4-painter");
}

void PidInfosTest::anApplicationIsDescribedByItsEntry()
{
    // given
    QFETCH(QByteArrayList, told);
    QFETCH(QString, file);
    QFETCH(QByteArray, more);
    QVERIFY(prepare());
    writeFile(session->systemApplications() / file.toStdString(),
              applicationText("The Painter", more.toStdString()));
    const WindowClient client(*desktop, ownProcess() + told);
    EVENTUALLY(isListed(*desktop, client.window()));

    // when
    const pidInfos info = infosOf(client.id());

    // then
    QCOMPARE(info.name, "The Painter");
    QCOMPARE(info.path, clientPath);
    QTEST(std::string(info.bundleId), "id");
}

void PidInfosTest::withoutAnEntryAnApplicationIsCalledByItsClass()
{
    // given
    QVERIFY(prepare());
    const WindowClient client(*desktop, ownProcess() << "WM_CLASS=xpaint|XPaint|");
    EVENTUALLY(isListed(*desktop, client.window()));

    // when
    const pidInfos info = infosOf(client.id());

    // then
    QCOMPARE(info.name, "XPaint");
    QCOMPARE(info.path, clientPath);
    QVERIFY(!info.bundleId);
}

void PidInfosTest::anEntryWithoutANameLendsItsId()
{
    // given
    QVERIFY(prepare());
    writeFile(session->applications() / "painter.desktop", "[Desktop Entry]\nType=Application\n");
    const WindowClient client(*desktop, ownProcess() << "WM_CLASS=painter|XPaint|");
    EVENTUALLY(isListed(*desktop, client.window()));

    // when
    const pidInfos info = infosOf(client.id());

    // then
    QCOMPARE(info.name, "painter");
    QCOMPARE(info.path, clientPath);
    QCOMPARE(std::string(info.bundleId), "painter");
}

void PidInfosTest::aWindowClassIsTwoTexts_data()
{
    QTest::addColumn<QByteArray>("windowClass");
    QTest::addColumn<std::string>("name");

    const auto row = [](const char* tag, const char* windowClass, const std::string& name) {
        QTest::newRow(tag) << "WM_CLASS=" + QByteArray(windowClass) << name;
    };
    row("without the last zero", "xterm|XTerm", "XTerm");
    row("with more after it", "a|b|c|", "b");
    row("one text", "xterm|", "xterm");
    row("one text without zero", "xterm", "xterm");
    row("no instance", "|XTerm|", "XTerm");
    row("two empty texts", "||", clientName);
    row("nothing", "", clientName);
    row("no ASCII", "\xff|\xe9|", "\xe9");
}

void PidInfosTest::aWindowClassIsTwoTexts()
{
    // given
    QFETCH(QByteArray, windowClass);
    QVERIFY(prepare());
    const WindowClient client(*desktop, {windowClass});
    EVENTUALLY(isListed(*desktop, client.window()));

    // then
    QTEST(infosOf(client.id()).name, "name");
}

void PidInfosTest::anExecutableIsKnownByItsPathUntilAfterItsRemoval_data()
{
    QTest::addColumn<QByteArray>("file");

    QTest::newRow("a word") << QByteArray("word");
    QTest::newRow("blanks and line ends") << QByteArray(" a\nb ");
    QTest::newRow("no text") << QByteArray("\xff\xfe");
    QTest::newRow("looks removed") << QByteArray("word (deleted)");
}

void PidInfosTest::anExecutableIsKnownByItsPathUntilAfterItsRemoval()
{
    // given
    QFETCH(QByteArray, file);
    QVERIFY(prepare());
    const std::string copy = session->programs() / file.toStdString();
    std::filesystem::copy_file(clientPath, copy);
    const WindowClient client(*desktop, {"WM_CLASS=a|b|"}, QByteArray::fromStdString(copy));
    EVENTUALLY(isListed(*desktop, client.window()));
    const std::string before = infosOf(client.id()).path;

    // when
    std::filesystem::remove(copy);

    // then
    QCOMPARE(before, copy);
    QCOMPARE(infosOf(client.id()).path, copy);
}

void PidInfosTest::anApplicationWithoutAnyNameIsLikeABackgroundProcess()
{
    // given
    QVERIFY(prepare());
    const WindowClient client(*desktop, ownProcess());
    EVENTUALLY(isListed(*desktop, client.window()));

    // when
    const pidInfos info = infosOf(client.id());

    // then
    QCOMPARE(info.name, clientName);
    QCOMPARE(info.path, std::string());
    QVERIFY(!info.bundleId);
}

void PidInfosTest::anApplicationIsKnownWhateverItsWindowTells_data()
{
    QTest::addColumn<QByteArrayList>("told");

    QTest::newRow("no process") << QByteArrayList{ownProcess().last()};
    QTest::newRow("no machine") << QByteArrayList{"pid=own"};
    QTest::newRow("another machine") << QByteArrayList{"pid=own", "WM_CLIENT_MACHINE=elsewhere"};
    QTest::newRow("another process") << QByteArrayList{"pid=1", ownProcess().last()};
}

void PidInfosTest::anApplicationIsKnownWhateverItsWindowTells()
{
    // given
    QFETCH(QByteArrayList, told);
    QVERIFY(prepare());
    const WindowClient client(*desktop, told << "WM_CLASS=xpaint|XPaint|");
    EVENTUALLY(isListed(*desktop, client.window()));

    // then
    QCOMPARE(infosOf(client.id()).name, "XPaint");
    QCOMPARE(infosOf(1).path, std::string());
}

void PidInfosTest::withoutAWindowManagerThereAreNoApplications()
{
    // given
    QVERIFY(prepare("none"));
    const WindowClient client(*desktop, ownProcess() << "WM_CLASS=xpaint|XPaint|");
    EVENTUALLY(client.window() != XCB_NONE);

    // when
    const pidInfos info = infosOf(client.id());

    // then
    QCOMPARE(info.name, clientName);
    QCOMPARE(info.path, std::string());
}

void PidInfosTest::theFirstListedWindowTells()
{
    // given
    QVERIFY(prepare("none"));
    const auto createWindow = [this](const char* windowClass) {
        const xcb_window_t window = xcb_generate_id(desktop->x.raw());
        xcb_create_window(desktop->x.raw(), XCB_COPY_FROM_PARENT, window, desktop->x.root(), 0, 0,
                          1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_change_property(desktop->x.raw(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, static_cast<uint32_t>(qstrlen(windowClass)),
                            windowClass);
        return window;
    };
    const xcb_window_t first = createWindow("First");
    const xcb_window_t second = createWindow("Second");

    // when
    list({first, second});
    const std::string asListed = infosOf(::getpid()).name;
    list({second, first});
    const std::string asListedAnew = infosOf(::getpid()).name;

    // then
    QCOMPARE(asListed, "First");
    QCOMPARE(asListedAnew, "Second");
}

void PidInfosTest::aListedWindowThatIsGoneIsPassedOver()
{
    // given
    QVERIFY(prepare("none"));
    const WindowClient client(*desktop, ownProcess() << "WM_CLASS=xpaint|XPaint|");
    EVENTUALLY(client.window() != XCB_NONE);

    // when
    list({xcb_generate_id(desktop->x.raw()), client.window(), XCB_NONE});

    // then
    QCOMPARE(infosOf(client.id()).name, "XPaint");
}

void PidInfosTest::theEntrysIdOutlivesTheCall()
{
    // given
    QVERIFY(prepare());
    writeFile(session->applications() / "painter.desktop", applicationText("Painter"));
    auto client =
        std::make_unique<WindowClient>(*desktop, ownProcess() << "WM_CLASS=painter|Painter|");
    EVENTUALLY(isListed(*desktop, client->window()));

    // when
    const char* first = infosOf(client->id()).bundleId;
    const char* second = infosOf(client->id()).bundleId;
    client.reset();
    session.reset();

    // then
    QCOMPARE(std::string(first), "painter");
    QCOMPARE(static_cast<const void*>(first), static_cast<const void*>(second));
}

void PidInfosTest::withoutAnEntryTheIdStaysAsItWas()
{
    // given
    QVERIFY(prepare());
    const WindowClient client(*desktop, ownProcess() << "WM_CLASS=xpaint|XPaint|");
    EVENTUALLY(isListed(*desktop, client.window()));
    const char* const before = "before";
    pidInfos info{.pid = client.id(), .reserved = 77, .bundleId = before};

    // when
    getPidInfos(&info);

    // then
    QCOMPARE(info.pid, client.id());
    QCOMPARE(info.reserved, 77);
    QCOMPARE(info.name, "XPaint");
    QCOMPARE(static_cast<const void*>(info.bundleId), static_cast<const void*>(before));
}

REGISTER_TEST(PidInfosTest, QCoreApplication)
#include "pidinfostest.moc"
