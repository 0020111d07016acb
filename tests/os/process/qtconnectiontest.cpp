#include "os/process/processqueries.h"

#include "tests/os/desktopentry/session.h"
#include "tests/os/process/windowclients.h"
#include "tests/support/testprogram.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace osUtils::Process;
using namespace TestSupport;

namespace {

uint32_t idOf(const QWindow& window)
{
    return static_cast<uint32_t>(window.winId());
}

}

/// Programs on the screen that Qt shows its windows on, wherever $DISPLAY points.
class QtConnectionTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void thisProgramIsInFrontWithItsOwnWindow();
    void anotherProgramIsFoundOnQtsScreen();
    void thisProgramIsAnApplication();
    void aWindowThatIsGoneIsNotReported();

private:
    const Session session;
    const QByteArray display = qgetenv("DISPLAY");
    const Desktop desktop{display};
};

void QtConnectionTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    qputenv("DISPLAY", ":54321"); // nothing is there
}

void QtConnectionTest::thisProgramIsInFrontWithItsOwnWindow()
{
    // given
    QWindow window;
    window.resize(200, 100);

    // when
    window.show();
    window.requestActivate();

    // then
    QTRY_COMPARE(getCurrentFocusProcess(), ::getpid());
}

void QtConnectionTest::anotherProgramIsFoundOnQtsScreen()
{
    // when
    const WindowClient client(desktop, ownProcess() << "do=keys");

    // then
    QTRY_COMPARE(getCurrentFocusProcess(), client.id());
}

void QtConnectionTest::thisProgramIsAnApplication()
{
    // given
    writeFile(session.applications() / "example.desktop",
              entryText("true", "StartupWMClass=os-process-tests\n"));
    QWindow window;
    window.resize(200, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    setNumbers(desktop.x, desktop.x.root(), "_NET_CLIENT_LIST", {idOf(window)});
    pidInfos info{.pid = ::getpid()};

    // when
    getPidInfos(&info);

    // then
    QCOMPARE(info.name, "Painter");
    QCOMPARE(info.path, QCoreApplication::applicationFilePath().toStdString());
    QCOMPARE(std::string(info.bundleId ? info.bundleId : ""), "example");
}

void QtConnectionTest::aWindowThatIsGoneIsNotReported()
{
    // given
    const xcb_window_t gone = xcb_generate_id(desktop.x.raw());
    setNumbers(desktop.x, desktop.x.root(), "_NET_CLIENT_LIST", {gone});
    setNumbers(desktop.x, desktop.x.root(), "_NET_SUPPORTING_WM_CHECK", {desktop.x.root()});
    setNumbers(desktop.x, desktop.x.root(), "_NET_ACTIVE_WINDOW", {gone});
    pidInfos info{.pid = ::getpid()};

    // when
    const int process = getCurrentFocusProcess();
    getPidInfos(&info);
    QCoreApplication::processEvents(); // Qt would complain of errors here

    // then
    QCOMPARE(process, -1);
    QCOMPARE(info.path, std::string());
}

REGISTER_TEST(QtConnectionTest, QGuiApplication)
#include "qtconnectiontest.moc"
