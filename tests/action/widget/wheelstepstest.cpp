#include "action/widget/wheelsteps.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

using namespace VcAction::Widget;

namespace {

QWheelEvent wheelEvent(QPoint angle, QPoint pixels)
{
    return {QPointF(),      QPointF(),         pixels, angle, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false};
}

}

class WheelStepsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void theGreaterTurnTellsTheDirection_data();
    void theGreaterTurnTellsTheDirection();
    void wholeNotchesBecomeStepsAndTheRestRemains_data();
    void wholeNotchesBecomeStepsAndTheRestRemains();
};

void WheelStepsTest::theGreaterTurnTellsTheDirection_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<QPoint>("pixels");
    QTest::addColumn<int>("delta");
    QTest::addColumn<bool>("horizontal");

    QTest::newRow("away from the user") << QPoint(0, 120) << QPoint() << 120 << false;
    QTest::newRow("towards the user") << QPoint(0, -120) << QPoint() << -120 << false;
    QTest::newRow("to the left") << QPoint(120, 0) << QPoint() << 120 << true;
    QTest::newRow("to the right") << QPoint(-120, 0) << QPoint() << -120 << true;
    QTest::newRow("mostly vertical") << QPoint(-60, 61) << QPoint() << 61 << false;
    QTest::newRow("mostly horizontal") << QPoint(-61, 60) << QPoint() << -61 << true;
    QTest::newRow("both alike") << QPoint(120, -120) << QPoint() << -120 << false;
    QTest::newRow("pixels only") << QPoint() << QPoint(15, -40) << 0 << false;
    QTest::newRow("pixels beside an angle") << QPoint(0, 8) << QPoint(90, 1) << 8 << false;
}

void WheelStepsTest::theGreaterTurnTellsTheDirection()
{
    // Given
    QFETCH(QPoint, angle);
    QFETCH(QPoint, pixels);

    // When
    const WheelTurn turn = wheelTurn(wheelEvent(angle, pixels));

    // Then
    QTEST(turn.delta, "delta");
    QTEST(turn.horizontal, "horizontal");
}

void WheelStepsTest::wholeNotchesBecomeStepsAndTheRestRemains_data()
{
    QTest::addColumn<int>("remainder");
    QTest::addColumn<int>("delta");
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("left");

    QTest::newRow("a notch") << 0 << 120 << 1 << 0;
    QTest::newRow("a notch back") << 0 << -120 << -1 << 0;
    QTest::newRow("two notches at once") << 0 << 240 << 2 << 0;
    QTest::newRow("half a notch") << 0 << 60 << 0 << 60;
    QTest::newRow("the other half") << 60 << 60 << 1 << 0;
    QTest::newRow("the other half, back") << -60 << -60 << -1 << 0;
    QTest::newRow("turned round") << 60 << -60 << 0 << -60;
    QTest::newRow("turned round the other way") << -60 << 60 << 0 << 60;
    QTest::newRow("turned round by more than a notch") << 60 << -150 << -1 << -30;
    QTest::newRow("a hair short of a notch") << 0 << 119 << 0 << 119;
    QTest::newRow("a hair short of a notch, back") << 0 << -119 << 0 << -119;
    QTest::newRow("a notch and a half") << 0 << 180 << 1 << 60;
    QTest::newRow("a notch and a half, back") << 0 << -180 << -1 << -60;
    QTest::newRow("no turn keeps the remainder") << 90 << 0 << 0 << 90;
    QTest::newRow("fine steps add up") << 112 << 8 << 1 << 0;
}

void WheelStepsTest::wholeNotchesBecomeStepsAndTheRestRemains()
{
    // Given
    QFETCH(int, remainder);
    QFETCH(int, delta);

    // When
    const WheelSteps wheel = wheelSteps(remainder, delta);

    // Then
    QTEST(wheel.steps, "steps");
    QTEST(wheel.remainder, "left");
}

REGISTER_TEST(WheelStepsTest, QCoreApplication)
#include "wheelstepstest.moc"
