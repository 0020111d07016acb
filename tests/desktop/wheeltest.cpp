#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

/// The wheel over the frame: how it steps through the colours.
class WheelTest : public DesktopTest {
    Q_OBJECT

private slots:
    void theWheelStepsThroughTheColours_data();
    void theWheelStepsThroughTheColours();
    void severalNotchesAreSeveralSteps();
    void aSidewaysWheelKeepsTheColour();
    void aStartColourOfItsOwnIsReachedByTheWheel();

private:
    static constexpr QPoint Away{100, 700};
};

void WheelTest::theWheelStepsThroughTheColours_data()
{
    QTest::addColumn<Pointer::Wheel>("direction");
    QTest::addColumn<QList<QColor>>("colours");

    const QColor orange(255, 80, 0);
    QTest::newRow("away from the user, up the list")
        << Pointer::Wheel::AwayFromUser << QList<QColor>{orange,   Qt::red,  Qt::black, Qt::magenta,
                                                         Qt::blue, Qt::cyan, Qt::green, Qt::yellow};
    QTest::newRow("towards the user, down the list")
        << Pointer::Wheel::TowardsUser << QList<QColor>{Qt::green, Qt::cyan, Qt::blue, Qt::magenta,
                                                        Qt::black, Qt::red,  orange,   Qt::yellow};
}

void WheelTest::theWheelStepsThroughTheColours()
{
    // given
    QFETCH(Pointer::Wheel, direction);
    QFETCH(QList<QColor>, colours);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    for (const QColor& colour : colours) {
        // when
        desktop->pointer.turn(direction);

        // then
        EVENTUALLY_COMPARE(desktop->screen.colourAt(StartPoint), colour.toRgb());
    }
}

void WheelTest::severalNotchesAreSeveralSteps()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.turn(Pointer::Wheel::TowardsUser, 3);

    // then
    EVENTUALLY_COMPARE(desktop->screen.colourAt(StartPoint), QColor(Qt::blue).toRgb());
    desktop->pointer.drag(line({200, 200}, {400, 200}));
    QVERIFY(parkPointer(Away, Qt::blue));
    QCOMPARE(desktop->screen.colourAt({300, 200}), QColor(Qt::blue));
}

void WheelTest::aSidewaysWheelKeepsTheColour()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.turn(Pointer::Wheel::Left, 2);
    desktop->pointer.turn(Pointer::Wheel::Right, 5);

    // then
    QVERIFY(parkPointer(Away, Qt::yellow));
}

void WheelTest::aStartColourOfItsOwnIsReachedByTheWheel()
{
    // given
    const QColor own(12, 34, 56);
    const Program korvel(*desktop, {.arguments = {"20", "12", "34", "56"}});
    EVENTUALLY(korvel.isReady());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(StartPoint), own);

    for (const auto& [direction, colour] :
         {std::pair(Pointer::Wheel::TowardsUser, QColor(Qt::red)),
          std::pair(Pointer::Wheel::AwayFromUser, own),
          std::pair(Pointer::Wheel::AwayFromUser, QColor(Qt::black))}) {
        // when
        desktop->pointer.turn(direction);

        // then
        EVENTUALLY_COMPARE(desktop->screen.colourAt(StartPoint), colour);
    }
}

REGISTER_TEST(WheelTest, QCoreApplication)
#include "wheeltest.moc"
