#include "windowsystem/x11/masterdevices.h"

#include "tests/desktop/harness/pointer.h"
#include "tests/support/reportcount.h"
#include "tests/support/testprogram.h"
#include "tests/support/windowprobe.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace Windowing;

namespace {

constexpr QPoint start{20, 20};
constexpr int moves = 10;

QPoint onTheWay(int move)
{
    return start + QPoint(5 * move, 3 * move);
}

/// A window at the screen's corner that remembers where the pointer has moved to.
class Window : public QWindow {
public:
    Window()
    {
        setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        setGeometry(0, 0, 200, 200);
    }

    QList<QPoint> path;
    int presses = 0;
    int releases = 0;

protected:
    void mouseMoveEvent(QMouseEvent* event) override { path += event->position().toPoint(); }
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
};

}

/// What the server tells a window of the pointer.
class MasterDevicesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void eachMoveAndClickIsToldOnce();
    void askingTwiceChangesNothing();
    void aWindowThatIsGoneIsNoHarm();

private:
    void expectOneReportEach(Window& window) const;

    const XConnection x{qgetenv("DISPLAY")};
    const Pointer pointer{x};
};

void MasterDevicesTest::initTestCase()
{
    // The platform plug-in has set it.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
}

void MasterDevicesTest::expectOneReportEach(Window& window) const
{
    // given: the first event of a device has others come along
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    pointer.moveTo(start);
    QTRY_COMPARE(window.path.value(window.path.size() - 1), start);
    window.path.clear();
    const ReportCount reports;

    // when
    pointer.press();
    QList<QPoint> sent;
    for (int move = 1; move <= moves; ++move) {
        sent += onTheWay(move);
        pointer.moveTo(sent.last());
    }
    pointer.release();

    // then
    QTRY_COMPARE(window.releases, 1);
    QCOMPARE(window.presses, 1);
    QCOMPARE(window.path, sent);
    QCOMPARE(reports.presses, 1);
    QCOMPARE(reports.motions, moves);
}

void MasterDevicesTest::eachMoveAndClickIsToldOnce()
{
    Window window;
    window.create();

    X11::hearMasterDevicesOnly(window.winId());

    expectOneReportEach(window);
}

void MasterDevicesTest::askingTwiceChangesNothing()
{
    Window window;
    window.create();

    X11::hearMasterDevicesOnly(window.winId());
    X11::hearMasterDevicesOnly(window.winId());

    expectOneReportEach(window);
}

void MasterDevicesTest::aWindowThatIsGoneIsNoHarm()
{
    Window window;
    window.create();
    const WId gone = window.winId();
    window.destroy();

    X11::hearMasterDevicesOnly(gone);

    finishQtRequests();
}

REGISTER_TEST(MasterDevicesTest, QGuiApplication)
#include "masterdevicestest.moc"
