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
constexpr auto clientName = "os-windowclient";

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
    void anApplicationIsDescribedByItsEntryOrItsClass_data();
    void anApplicationIsDescribedByItsEntryOrItsClass();
    void anExecutableIsKnownByItsPathUntilAfterItsRemoval_data();
    void anExecutableIsKnownByItsPathUntilAfterItsRemoval();
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

void PidInfosTest::anApplicationIsDescribedByItsEntryOrItsClass_data()
{
    QTest::addColumn<QByteArrayList>("told");
    QTest::addColumn<std::string>("file");
    QTest::addColumn<std::string>("entry");
    QTest::addColumn<std::string>("name");
    QTest::addColumn<std::string>("id"); // empty for none

    const auto entryRow = [](const char* tag, const QByteArrayList& told, const char* file,
                             const std::string& entry, const char* name, const char* id) {
        QTest::newRow(tag) << told << std::string(file) << entry << std::string(name)
                           << std::string(id);
    };
    const std::string painter = entryText("true");
    entryRow("window class in the entry", {"WM_CLASS=paint|Paint-2|"}, "the-painter.desktop",
             entryText("true", "StartupWMClass=Paint-2\n"), "Painter", "the-painter");
    entryRow("entry named for KDE", {"WM_CLASS=a|B|", "_KDE_NET_WM_DESKTOP_FILE=org.x.Painter"},
             "org.x.Painter.desktop", painter, "Painter", "org.x.Painter");
    entryRow("entry named for GNOME", {"WM_CLASS=a|B|", "_GTK_APPLICATION_ID=org.x.Painter"},
             "org.x.Painter.desktop", painter, "Painter", "org.x.Painter");
    entryRow("entry in a subfolder", {"_KDE_NET_WM_DESKTOP_FILE=kde4-painter"},
             "kde4/painter.desktop", painter, "Painter", "kde4-painter");
    entryRow("entry without a name", {"WM_CLASS=painter|XPaint|"}, "painter.desktop",
             "[Desktop Entry]\nType=Application\n", "painter", "painter");

    const auto row = [&entryRow](const char* tag, const QByteArrayList& told, const char* name) {
        entryRow(tag, told, "other.desktop", entryText("true"), name, "");
    };
    row("class", {"WM_CLASS=xpaint|XPaint|"}, "XPaint");
    row("class without the last zero", {"WM_CLASS=xterm|XTerm"}, "XTerm");
    row("class with more after it", {"WM_CLASS=a|b|c|"}, "b");
    row("one text", {"WM_CLASS=xterm|"}, "xterm");
    row("one text without zero", {"WM_CLASS=xterm"}, "xterm");
    row("no instance", {"WM_CLASS=|XTerm|"}, "XTerm");
    row("no ASCII", {"WM_CLASS=\xff|\xe9|"}, "\xe9");
    row("two empty texts", {"WM_CLASS=||"}, clientName);
    row("no class", {}, clientName);
    row("no process", {"WM_CLASS=a|b|", ownProcess().last()}, "b");
    row("no machine", {"WM_CLASS=a|b|", "pid=own"}, "b");
    row("another machine", {"WM_CLASS=a|b|", "pid=own", "WM_CLIENT_MACHINE=elsewhere"}, "b");
    row("another process", {"WM_CLASS=a|b|", "pid=1", ownProcess().last()}, "b");
}

void PidInfosTest::anApplicationIsDescribedByItsEntryOrItsClass()
{
    // given
    QFETCH(QByteArrayList, told);
    QFETCH(std::string, file);
    QFETCH(std::string, entry);
    QFETCH(std::string, name);
    QVERIFY(prepare());
    writeFile(session->systemApplications() / file, entry);
    const WindowClient client(*desktop, told);
    EVENTUALLY(isListed(*desktop, client.window()));

    // when
    const pidInfos info = infosOf(client.id());

    // then
    QCOMPARE(info.name, name);
    QCOMPARE(info.path, name == clientName ? std::string() : clientPath);
    QTEST(std::string(info.bundleId ? info.bundleId : ""), "id");
    QCOMPARE(infosOf(1).path, std::string());
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
    writeFile(session->applications() / "painter.desktop", entryText("true"));
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
