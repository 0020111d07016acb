#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/inputdevice.h"
#include "tests/desktop/harness/monitordesktoptest.h"
#include "tests/desktop/harness/monitorserver.h"
#include "tests/support/testprogram.h"

#include <algorithm>

/// Touchpads, touch screens and tablets, as the server's own drivers hand them on.
class InputDevicesTest : public MonitorDesktopTest {
    Q_OBJECT

private slots:
    void aTouchpadStepsThroughTheColoursNotchByNotch();
    void aTouchpadScrolledSidewaysKeepsTheColour();
    void aFingerDrawsOneStroke();
    void aPenDrawsOneStroke();

private:
    [[nodiscard]] InputDevice device(const QByteArray& name) const
    {
        const auto& monitorServer = static_cast<const MonitorServer&>(*server);
        return {monitorServer.inputSocket(name), desktop->x.size()};
    }
    /// Moves the pointer on by the touchpad and waits for the pen's dot there: all scrolling has
    /// been dealt with then. Qt takes no scrolling from a device before it has seen it at work.
    [[nodiscard]] bool moveWith(InputDevice& touchpad, QColor dotColour) const;
    /// Whether the screen has a half-transparent stroke along the line, no darker than once over.
    [[nodiscard]] bool hasOneStroke(const QList<QPoint>& path) const;

    static constexpr QRect Monitor{0, 0, 1280, 800};
    static constexpr QPoint Away{100, 700};
    static constexpr QPoint FurtherAway{100, 600};
    static const Launch HalfTransparentBlue;
};

const Launch InputDevicesTest::HalfTransparentBlue{.arguments = {"20", "0", "0", "255", "1"}};

bool InputDevicesTest::moveWith(InputDevice& touchpad, QColor dotColour) const
{
    touchpad.moveBy({40, 20});
    const QPoint place = desktop->pointer.position();
    return eventually([&] { return desktop->screen.colourAt(place) == dotColour; });
}

bool InputDevicesTest::hasOneStroke(const QList<QPoint>& path) const
{
    const QColor expected = mixed(Qt::white, Qt::blue, 0.5);
    return std::all_of(path.begin(), path.end(), [&](QPoint point) {
        return isClose(desktop->screen.colourAt(point), expected);
    });
}

void InputDevicesTest::aTouchpadStepsThroughTheColoursNotchByNotch()
{
    // given
    QVERIFY(plugIn({Monitor}));
    desktop->pointer.moveTo(StartPoint);
    InputDevice touchpad = device("pad");
    QVERIFY(touchpad.isConnected());
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    QVERIFY(moveWith(touchpad, Qt::yellow));

    // when
    for (int part = 0; part < 7; ++part)
        touchpad.scroll({0, 15});

    // then
    QVERIFY(moveWith(touchpad, Qt::yellow));

    // when
    touchpad.scroll({0, 15});

    // then
    QVERIFY(moveWith(touchpad, Qt::green));

    // when
    touchpad.scroll({0, -60});
    touchpad.scroll({0, -60});

    // then
    QVERIFY(moveWith(touchpad, Qt::yellow));
}

void InputDevicesTest::aTouchpadScrolledSidewaysKeepsTheColour()
{
    // given
    QVERIFY(plugIn({Monitor}));
    desktop->pointer.moveTo(StartPoint);
    InputDevice touchpad = device("pad");
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(moveWith(touchpad, Qt::yellow));

    // when
    for (int part = 0; part < 40; ++part)
        touchpad.scroll({15, 0});

    // then
    QVERIFY(moveWith(touchpad, Qt::yellow));
}

void InputDevicesTest::aFingerDrawsOneStroke()
{
    // given
    QVERIFY(plugIn({Monitor}));
    desktop->pointer.moveTo(StartPoint);
    InputDevice finger = device("touch");
    QVERIFY(finger.isConnected());
    const Program korvel(*desktop, HalfTransparentBlue);
    EVENTUALLY(korvel.isReady());
    const QList<QPoint> path = line({300, 300}, {700, 300});

    // when
    finger.touchDown(path.first());
    for (const QPoint& point : path)
        finger.touchMove(point);
    finger.touchUp(path.last());

    // then
    QVERIFY(parkPointer(Away, mixed(Qt::white, Qt::blue, 0.5)));
    QVERIFY(hasOneStroke(path));
}

void InputDevicesTest::aPenDrawsOneStroke()
{
    // given
    QVERIFY(plugIn({Monitor}));
    desktop->pointer.moveTo(StartPoint);
    InputDevice pen = device("pen");
    QVERIFY(pen.isConnected());
    const Program korvel(*desktop, HalfTransparentBlue);
    EVENTUALLY(korvel.isReady());
    const QList<QPoint> path = line({300, 300}, {700, 300});

    // when
    pen.comeNear(true);
    pen.penMove(path.first(), 0);
    pen.penTip(true);
    for (const QPoint& point : path)
        pen.penMove(point, 1000);
    pen.penTip(false);
    pen.penMove(FurtherAway, 0);
    pen.comeNear(false);

    // then
    QVERIFY(parkPointer(Away, mixed(Qt::white, Qt::blue, 0.5)));
    QVERIFY(hasOneStroke(path));
}

REGISTER_TEST(InputDevicesTest, QCoreApplication)
#include "inputdevicestest.moc"
