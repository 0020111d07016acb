#include "tests/action/probes.h"
#include "tests/support/paintrecorder.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

#include <memory>

using TestSupport::PaintRecorder;

namespace {

/// A frame whose repaints a test can ask for.
class RepaintProbe : public ActionTest::FrameProbe {
public:
    using ActionFrame::markDirty;
    using ActionFrame::repaintDirty;
    using ActionFrame::repaintMove;
    using ActionFrame::trackDirtyRegion;

    void moveTo(const QRect& changed) { move(changed, true); }
    /// As a program makes one up, not the window system.
    void moveByProgram(const QRect& changed) { move(changed, false); }

private:
    void move(const QRect& changed, bool isOfTheWindowSystem)
    {
        QMouseEvent event(QEvent::MouseMove, changed.center(), mapToGlobal(changed.center()),
                          Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        if (isOfTheWindowSystem)
            QSpontaneKeyEvent::setSpontaneous(&event);
        markDirty(changed);
        repaintMove(event);
    }
};

constexpr QRect here(10, 10, 20, 20);
constexpr QRect there(100, 50, 20, 20);
constexpr QRect yonder(200, 90, 20, 20);

}

/// When the pointer's moves are painted: the first of a turn of the event loop at once, those that
/// had queued up behind it together.
class RepaintMovesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theFirstMoveOfATurnIsPaintedAtOnce();
    void furtherMovesOfATurnArePaintedTogetherAtItsEnd();
    void anotherRepaintPaintsTheMovesToo();
    void afterAnotherRepaintAMoveIsPaintedAtOnce();
    void untrackedMovesArePaintedInFull();
    void aMoveOfTheProgramsOwnIsPaintedAtOnce();
    void aTurnOfTheLoopThatWaitsEnds();
    void manyRegionsArePaintedAsOne();

private:
    static void endTurn() { QCoreApplication::processEvents(); }

    std::unique_ptr<RepaintProbe> frame;
    std::unique_ptr<PaintRecorder> recorder;
};

void RepaintMovesTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    frame = std::make_unique<RepaintProbe>();
    frame->trackDirtyRegion();
    frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(frame.get()));
    endTurn();
    recorder = std::make_unique<PaintRecorder>(*frame);
}

void RepaintMovesTest::cleanup()
{
    recorder.reset();
    frame.reset();
}

void RepaintMovesTest::theFirstMoveOfATurnIsPaintedAtOnce()
{
    for (const QRect& changed : {here, there, yonder}) {
        // Given
        recorder->region = {};

        // When
        frame->moveTo(changed);

        // Then
        QCOMPARE(recorder->region, QRegion(changed));
        endTurn();
    }
    QCOMPARE(recorder->paints, 3);
}

void RepaintMovesTest::furtherMovesOfATurnArePaintedTogetherAtItsEnd()
{
    // Given
    frame->moveTo(here);
    recorder->region = {};

    // When
    frame->moveTo(there);
    frame->moveTo(yonder);

    // Then
    QCOMPARE(recorder->paints, 1);

    // When
    endTurn();

    // Then
    QCOMPARE(recorder->paints, 2);
    QCOMPARE(recorder->region, QRegion(there) + yonder);
}

void RepaintMovesTest::anotherRepaintPaintsTheMovesToo()
{
    // Given
    frame->moveTo(here);
    frame->moveTo(there);

    // When
    frame->repaintDirty();

    // Then
    QCOMPARE(recorder->paints, 2);
    QCOMPARE(recorder->region, QRegion(here) + there);

    // When
    endTurn();

    // Then
    QCOMPARE(recorder->paints, 2);
}

void RepaintMovesTest::afterAnotherRepaintAMoveIsPaintedAtOnce()
{
    // Given
    frame->markDirty(here);
    frame->repaintDirty();

    // When
    frame->moveTo(there);

    // Then
    QCOMPARE(recorder->paints, 2);
}

void RepaintMovesTest::untrackedMovesArePaintedInFull()
{
    // Given
    RepaintProbe untracked;
    untracked.show();
    QVERIFY(QTest::qWaitForWindowExposed(&untracked));
    endTurn();
    PaintRecorder paints(untracked);

    // When
    untracked.moveTo(here);
    untracked.moveTo(here);
    untracked.moveTo(here);
    endTurn();
    endTurn();

    // Then
    QCOMPARE(paints.paints, 2);
    QCOMPARE(paints.region, QRegion(untracked.rect()));
}

void RepaintMovesTest::aMoveOfTheProgramsOwnIsPaintedAtOnce()
{
    // Given
    frame->moveTo(here);
    const int before = recorder->paints;

    // When
    frame->moveByProgram(there);

    // Then
    QCOMPARE(recorder->paints, before + 1);
}

void RepaintMovesTest::aTurnOfTheLoopThatWaitsEnds()
{
    // Given
    frame->moveTo(here);

    // When
    frame->moveTo(there);

    // Then
    QTRY_COMPARE(recorder->paints, 2);
}

void RepaintMovesTest::manyRegionsArePaintedAsOne()
{
    // Given
    frame->moveTo(here);
    recorder->region = {};
    QRegion scattered;

    // When
    for (int place = 0; place < 100; ++place) {
        const QRect spot(place * 37 % 350, place * 53 % 280, 3, 3);
        scattered += spot;
        frame->moveTo(spot);
    }
    endTurn();

    // Then
    QVERIFY(scattered.subtracted(recorder->region).isEmpty());
    QVERIFY(recorder->region.rectCount() < 60);
    QCOMPARE(recorder->paints, 2);
}

REGISTER_TEST(RepaintMovesTest, QApplication)
#include "repaintmovestest.moc"
