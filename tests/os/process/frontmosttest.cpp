#include "os/process/processqueries.h"

#include "tests/desktop/harness/desktoptest.h"
#include "tests/os/process/windowclients.h"
#include "tests/support/testprogram.h"

using osUtils::Process::getCurrentFocusProcess;
using namespace TestSupport;

namespace {

constexpr int nobody = -1;

/// One that does not tell whose windows are.
class ServerWithoutProcesses : public XServer {
public:
    ServerWithoutProcesses()
        : XServer("/usr/bin/Xvfb", {"-screen", "0", "1280x800x24", "-extension", "X-Resource"})
    {
    }
};

}

/// Whose window the user works with, on a screen with a window manager and without.
class FrontmostTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aProgramIsInFrontUntilItEnds_data();
    void aProgramIsInFrontUntilItEnds();
    void aProgramIsKnownWhateverItsWindowTells_data() { addTold(true); }
    void aProgramIsKnownWhateverItsWindowTells();
    void theWindowIsAskedOnAServerWithoutProcesses_data() { addTold(false); }
    void theWindowIsAskedOnAServerWithoutProcesses() { aProgramIsKnownWhateverItsWindowTells(); }
    void theWindowManagersActiveWindowCounts();
    void theRootWindowsWordOnWhatIsActiveCounts_data();
    void theRootWindowsWordOnWhatIsActiveCounts();
    void theWindowAroundTheOneWithTheKeysCounts();
    void whenKeysGoToThePointerTheWindowBelowItCounts_data();
    void whenKeysGoToThePointerTheWindowBelowItCounts();
    void whatAnEndedWindowManagerLeftDoesNotCount();
    void theScreenThatTheDisplayNamesIsAsked_data();
    void theScreenThatTheDisplayNamesIsAsked();

private:
    [[nodiscard]] std::unique_ptr<XServer> startServer() override;
    static void addTold(bool isKnown);
    /// Starts the window manager, and points $DISPLAY to the screen.
    [[nodiscard]] bool prepare(const QByteArray& managerName);
    [[nodiscard]] QList<uint32_t> activeWindow() const
    {
        return numbersOfRoot(desktop->x, "_NET_ACTIVE_WINDOW");
    }
};

std::unique_ptr<XServer> FrontmostTest::startServer()
{
    if (QByteArray(QTest::currentTestFunction()).endsWith("OnAServerWithoutProcesses"))
        return std::make_unique<ServerWithoutProcesses>();
    return DesktopTest::startServer();
}

void FrontmostTest::aProgramIsInFrontUntilItEnds_data()
{
    QTest::addColumn<QByteArray>("managerName");

    QTest::newRow("no window manager") << QByteArray("none");
    QTest::newRow("openbox") << QByteArray("openbox");
}

bool FrontmostTest::prepare(const QByteArray& managerName)
{
    qputenv("DISPLAY", desktop->display);
    return startWindowManager(managerName);
}

void FrontmostTest::aProgramIsInFrontUntilItEnds()
{
    // given
    QFETCH(QByteArray, managerName);
    QVERIFY(prepare(managerName));
    const int onTheBareScreen = getCurrentFocusProcess();

    // when
    auto client = std::make_unique<WindowClient>(*desktop, ownProcess() << "do=keys");

    // then
    QCOMPARE(onTheBareScreen, nobody);
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client->id());
    client.reset();
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), nobody);
}

void FrontmostTest::addTold(bool isKnown)
{
    QTest::addColumn<QByteArray>("managerName");
    QTest::addColumn<QByteArrayList>("told");
    QTest::addColumn<bool>("isKnown");

    const QByteArray here = ownProcess().last();
    for (const QByteArray name : {"none", "openbox"}) {
        const auto row = [&name, isKnown](const char* what, const QByteArrayList& told) {
            QTest::addRow("%s, %s", what, name.constData()) << name << told << isKnown;
        };
        row("nothing", {});
        row("no process", {here});
        row("no machine", {"pid=own"});
        row("another machine", {"pid=own", "WM_CLIENT_MACHINE=elsewhere"});
        row("a process that is another's outside of its namespace", {"pid=1"});
        row("a longer machine name", {"pid=own", here + 'x'});
        row("a shorter machine name", {"pid=own", here.chopped(1)});
        row("process 0", {"pid=0", here});
        row("too large a process", {"pid=4294967295", here});
        row("a process as text", {"_NET_WM_PID=1234", here});
        QTest::addRow("its process, %s", name.constData()) << name << ownProcess() << true;
        QTest::addRow("its process and a zero byte, %s", name.constData())
            << name << QByteArrayList{"pid=own", here + '|'} << true;
    }
}

void FrontmostTest::aProgramIsKnownWhateverItsWindowTells()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(QByteArrayList, told);
    QFETCH(bool, isKnown);
    QVERIFY(prepare(managerName));

    // when
    const WindowClient client(*desktop, told << "do=keys");
    EVENTUALLY(client.window() != XCB_NONE);
    EVENTUALLY_COMPARE(desktop->windows.focused(), client.window());
    if (managerName == "openbox")
        EVENTUALLY_COMPARE(activeWindow(), QList<uint32_t>({client.window()}));

    // then
    QCOMPARE(getCurrentFocusProcess(), isKnown ? client.id() : nobody);
}

void FrontmostTest::theWindowManagersActiveWindowCounts()
{
    // given
    QVERIFY(prepare("openbox"));
    const WindowClient below(*desktop, ownProcess());
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), below.id());

    // when
    auto above = std::make_unique<WindowClient>(*desktop, ownProcess());

    // then
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), above->id());
    above.reset();
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), below.id());
}

void FrontmostTest::theRootWindowsWordOnWhatIsActiveCounts_data()
{
    QTest::addColumn<QList<uint32_t>>("active");
    QTest::addColumn<bool>("isInFront");

    const uint32_t gone = 0x12345678;
    QTest::newRow("none is") << QList<uint32_t>{XCB_NONE} << false;
    QTest::newRow("one that is gone: who has the keys") << QList<uint32_t>{gone} << true;
    QTest::newRow("nothing told: who has the keys") << QList<uint32_t>{} << true;
}

void FrontmostTest::theRootWindowsWordOnWhatIsActiveCounts()
{
    // given
    QFETCH(QList<uint32_t>, active);
    QFETCH(bool, isInFront);
    QVERIFY(prepare("none"));
    const WindowClient client(*desktop, {"do=keys"});
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());

    // when: a window manager announces itself
    const xcb_window_t root = desktop->x.root();
    setNumbers(desktop->x, root, "_NET_SUPPORTING_WM_CHECK", {root});
    setNumbers(desktop->x, root, "_NET_ACTIVE_WINDOW", active);

    // then
    QCOMPARE(getCurrentFocusProcess(), isInFront ? client.id() : nobody);
}

void FrontmostTest::theWindowAroundTheOneWithTheKeysCounts()
{
    // given
    QVERIFY(prepare("none"));

    // when
    const WindowClient client(*desktop, ownProcess() << "do=childkeys");
    EVENTUALLY(client.window() != XCB_NONE);

    // then
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());
    QVERIFY(desktop->windows.focused() != client.window());
}

void FrontmostTest::whenKeysGoToThePointerTheWindowBelowItCounts_data()
{
    QTest::addColumn<bool>("isAbove");
    QTest::addColumn<uint32_t>("keys");
    QTest::addColumn<bool>("isInFront");

    const uint32_t pointer = XCB_INPUT_FOCUS_POINTER_ROOT;
    QTest::newRow("above the window") << true << pointer << true;
    QTest::newRow("above the screen") << false << pointer << false;
    QTest::newRow("keys go nowhere") << true << uint32_t{XCB_INPUT_FOCUS_NONE} << false;
}

void FrontmostTest::whenKeysGoToThePointerTheWindowBelowItCounts()
{
    // given
    QFETCH(bool, isAbove);
    QFETCH(uint32_t, keys);
    QFETCH(bool, isInFront);
    QVERIFY(prepare("none"));
    const WindowClient client(*desktop, ownProcess());
    EVENTUALLY(client.window() != XCB_NONE);

    // when
    const QPoint middle = desktop->windows.geometry(client.window()).center();
    desktop->pointer.moveTo(isAbove ? middle : QPoint(640, 400));
    xcb_set_input_focus(desktop->x.raw(), XCB_INPUT_FOCUS_NONE, keys, XCB_CURRENT_TIME);
    desktop->x.synchronise();

    // then
    QCOMPARE(getCurrentFocusProcess(), isInFront ? client.id() : nobody);
}

void FrontmostTest::whatAnEndedWindowManagerLeftDoesNotCount()
{
    // given
    QVERIFY(prepare("none"));
    const WindowClient former(*desktop, ownProcess());
    EVENTUALLY(former.window() != XCB_NONE);
    const xcb_window_t formerWindow = former.window();
    const xcb_window_t gone = xcb_generate_id(desktop->x.raw());
    setNumbers(desktop->x, desktop->x.root(), "_NET_SUPPORTING_WM_CHECK", {gone});
    setNumbers(desktop->x, desktop->x.root(), "_NET_ACTIVE_WINDOW", {formerWindow});

    // when
    const WindowClient client(*desktop, ownProcess() << "do=keys");

    // then
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());
}

void FrontmostTest::theScreenThatTheDisplayNamesIsAsked_data()
{
    QTest::addColumn<QByteArray>("suffix");
    QTest::addColumn<bool>("isThere");

    QTest::newRow("the first") << QByteArray(".0") << true;
    QTest::newRow("one that is not there") << QByteArray(".7") << false;
}

void FrontmostTest::theScreenThatTheDisplayNamesIsAsked()
{
    // given
    QFETCH(QByteArray, suffix);
    QFETCH(bool, isThere);
    QVERIFY(prepare("none"));
    const WindowClient client(*desktop, ownProcess() << "do=keys");
    EVENTUALLY_COMPARE(getCurrentFocusProcess(), client.id());

    // when
    qputenv("DISPLAY", desktop->display + suffix);

    // then
    QCOMPARE(getCurrentFocusProcess(), isThere ? client.id() : nobody);
}

REGISTER_TEST(FrontmostTest, QCoreApplication)
#include "frontmosttest.moc"
