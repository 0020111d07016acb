#include "action/frame/repaintpace.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QTest>

using VcAction::Frame::RepaintPace;

/// When a window that follows the pointer repaints.
class RepaintPaceTest : public QObject {
    Q_OBJECT

private slots:
    void init() { repaints = preparations = 0; }
    void theFirstMoveOfATurnIsRepaintedAtOnceAndTheOthersTogether();
    void whatWasRepaintedForAnotherReasonIsNotRepaintedAgain();
    void theNextRepaintIsPreparedOnceATurn();
    void withoutMovesNothingHappens();

private:
    int repaints = 0;
    int preparations = 0;
    RepaintPace pace{[this] { ++repaints; }, [this] { ++preparations; }, nullptr};
};

void RepaintPaceTest::theFirstMoveOfATurnIsRepaintedAtOnceAndTheOthersTogether()
{
    // when
    pace.ask();

    // then
    QCOMPARE(repaints, 1);

    // when
    pace.ask();
    pace.ask();

    // then
    QCOMPARE(repaints, 1);
    QCoreApplication::processEvents();
    QCOMPARE(repaints, 2);
}

void RepaintPaceTest::whatWasRepaintedForAnotherReasonIsNotRepaintedAgain()
{
    // given
    pace.ask();
    pace.ask();

    // when
    pace.allRepainted();
    QCoreApplication::processEvents();

    // then
    QCOMPARE(repaints, 1);
}

void RepaintPaceTest::theNextRepaintIsPreparedOnceATurn()
{
    // given
    pace.ask();
    pace.ask();
    QCOMPARE(preparations, 0);

    // when
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();

    // then
    QCOMPARE(preparations, 1);
}

void RepaintPaceTest::withoutMovesNothingHappens()
{
    // when
    QCoreApplication::processEvents();

    // then
    QCOMPARE(repaints, 0);
    QCOMPARE(preparations, 0);
}

REGISTER_TEST(RepaintPaceTest, QCoreApplication)
#include "repaintpacetest.moc"
