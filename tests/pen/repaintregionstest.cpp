#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/paintrecorder.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegion>
#include <QRegularExpression>
#include <QTest>

using namespace PenTest;
using TestSupport::PaintRecorder;

namespace {

/// Whether all of the area was painted.
bool covers(const QRegion& region, const QRect& area)
{
    return QRegion(area).subtracted(region).isEmpty();
}

int areaOf(const QRegion& region)
{
    int area = 0;
    for (const QRect& rect : region)
        area += rect.width() * rect.height();
    return area;
}

}

/// What is repainted: all that changes, at once unless there is more in the queue, and little else.
class RepaintRegionsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aMoveRepaintsTheOldAndTheNewTip();
    void aFarMoveRepaintsNothingBetweenTheTips();
    void aMoveInAStrokeRepaintsTheNewSegment();
    void aStrokesLengthDoesNotMatter();
    void aPressRepaintsTheDot();
    void aReleaseRepaintsTheLastSegment();
    void aNewColourRepaintsTheTip();
    void aNewSizeRepaintsTheLargerTip_data();
    void aNewSizeRepaintsTheLargerTip();
    void aShapeRepaintsItsOldAndNewBox();
    void aShapeThatBecomesAStrokeRepaintsItsNewestMove();
    void aMoveIsPaintedAtOnce();
    void aQueueOfMovesIsPaintedTogether();
    void aReleasePaintsTheMovesBeforeIt();
    void whatIsDrawnIsKnownBeforeItIsPainted();
};

void RepaintRegionsTest::aMoveRepaintsTheOldAndTheNewTip()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.hoverTo({100, 100});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.hoverTo({106, 100});

    // Then
    QVERIFY(covers(recorder.region, QRect(94, 94, 18, 12)));
    QVERIFY(QRect(90, 90, 26, 20).contains(recorder.region.boundingRect()));
}

void RepaintRegionsTest::aFarMoveRepaintsNothingBetweenTheTips()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.hoverTo({50, 50});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.hoverTo({350, 350});

    // Then
    QVERIFY(covers(recorder.region, QRect(45, 45, 10, 10)));
    QVERIFY(covers(recorder.region, QRect(345, 345, 10, 10)));
    QVERIFY(areaOf(recorder.region) < 2 * 20 * 20);
}

void RepaintRegionsTest::aMoveInAStrokeRepaintsTheNewSegment()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({100, 100});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.moveTo({150, 100});

    // Then
    QVERIFY(covers(recorder.region, QRect(95, 95, 60, 10)));
    QVERIFY(QRect(88, 88, 74, 24).contains(recorder.region.boundingRect()));
}

void RepaintRegionsTest::aStrokesLengthDoesNotMatter()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    for (int round = 0; round < 20; ++round)
        canvas.moveTo(round % 2 == 0 ? QPointF(350, 50 + 10 * round)
                                     : QPointF(50, 50 + 10 * round));
    canvas.moveTo({200, 300});
    canvas.moveTo({202, 300});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.moveTo({204, 300});

    // Then
    QVERIFY(covers(recorder.region, QRect(197, 295, 12, 10)));
    QVERIFY(areaOf(recorder.region) < 30 * 30);
}

void RepaintRegionsTest::aPressRepaintsTheDot()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.hoverTo({300, 300});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.press({100, 100});

    // Then
    QVERIFY(covers(recorder.region, QRect(95, 95, 10, 10)));
    QVERIFY(covers(recorder.region, QRect(295, 295, 10, 10)));
    QVERIFY(areaOf(recorder.region) < 2 * 20 * 20);
}

void RepaintRegionsTest::aReleaseRepaintsTheLastSegment()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({100, 100});
    canvas.moveTo({150, 100});
    canvas.moveTo({160, 100});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.release({160, 100});

    // Then
    QVERIFY(covers(recorder.region, QRect(145, 95, 20, 10)));
    QVERIFY(areaOf(recorder.region) < 30 * 30);
}

void RepaintRegionsTest::aNewColourRepaintsTheTip()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.hoverTo({100, 100});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.frame.setPen(Qt::blue);

    // Then
    QVERIFY(covers(recorder.region, QRect(95, 95, 10, 10)));
    QVERIFY(areaOf(recorder.region) < 20 * 20);
}

void RepaintRegionsTest::aNewSizeRepaintsTheLargerTip_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");

    QTest::newRow("larger") << 10 << 40;
    QTest::newRow("smaller") << 40 << 10;
}

void RepaintRegionsTest::aNewSizeRepaintsTheLargerTip()
{
    // Given
    QFETCH(int, from);
    QFETCH(int, to);
    Canvas canvas(from);
    QVERIFY(canvas.show());
    canvas.hoverTo({100, 100});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.frame.setPenSize(to);

    // Then
    QVERIFY(covers(recorder.region, QRect(80, 80, 40, 40)));
    QVERIFY(areaOf(recorder.region) < 50 * 50);
}

void RepaintRegionsTest::aShapeRepaintsItsOldAndNewBox()
{
    // Given
    Canvas canvas(10, Qt::red, Rectangle);
    QVERIFY(canvas.show());
    canvas.press({100, 100});
    canvas.moveTo({150, 130});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.moveTo({80, 90});

    // Then
    QVERIFY(covers(recorder.region, QRect(QPoint(100, 100), QPoint(150, 130))));
    QVERIFY(covers(recorder.region, QRect(QPoint(80, 90), QPoint(100, 100))));
    QVERIFY(areaOf(recorder.region) < 60 * 40 + 30 * 20);
}

void RepaintRegionsTest::aShapeThatBecomesAStrokeRepaintsItsNewestMove()
{
    // Given
    Canvas canvas(10, Qt::red, Ellipse);
    QVERIFY(canvas.show());
    canvas.press({100, 100});
    canvas.moveTo({250, 100});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.frame.setStyle(Freehand);
    canvas.moveTo({250, 200});

    // Then
    QVERIFY(covers(recorder.region, QRect(95, 95, 160, 10)));
    QVERIFY(covers(recorder.region, QRect(245, 95, 10, 110)));
}

void RepaintRegionsTest::aMoveIsPaintedAtOnce()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    for (int move = 1; move <= 5; ++move) {
        // When
        canvas.hoverTo(QPointF(50 + 10 * move, 50));

        // Then
        QCOMPARE(recorder.paints, move);
        canvas.endTurn();
    }
    QCOMPARE(recorder.paints, 5);
}

void RepaintRegionsTest::aQueueOfMovesIsPaintedTogether()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    for (const QPointF point : {QPointF(60, 50), QPointF(200, 50), QPointF(200, 200)})
        canvas.moveTo(point);

    // Then
    QCOMPARE(recorder.paints, 1);

    // When
    canvas.endTurn();

    // Then
    QCOMPARE(recorder.paints, 2);
    QVERIFY(covers(recorder.region, QRect(45, 45, 160, 10)));
    QVERIFY(covers(recorder.region, QRect(195, 45, 10, 160)));
}

void RepaintRegionsTest::aReleasePaintsTheMovesBeforeIt()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.endTurn();
    PaintRecorder recorder(canvas.frame);

    // When
    canvas.moveTo({60, 50});
    canvas.moveTo({200, 50});
    canvas.moveTo({200, 200});
    canvas.release({200, 200});

    // Then
    QCOMPARE(recorder.paints, 2);
    QVERIFY(covers(recorder.region, QRect(45, 45, 160, 10)));
    QVERIFY(covers(recorder.region, QRect(195, 45, 10, 160)));
}

void RepaintRegionsTest::whatIsDrawnIsKnownBeforeItIsPainted()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.endTurn();
    const PaintRecorder recorder(canvas.frame);

    // When
    for (const QPointF point :
         {QPointF(60, 50), QPointF(200, 50), QPointF(200, 200), QPointF(210, 200)})
        canvas.moveTo(point);

    // Then
    QCOMPARE(recorder.paints, 1);
    const QRegion drawn = canvas.frame.drawnRegion();
    QVERIFY(covers(drawn, QRect(45, 45, 160, 10)));
    QVERIFY(covers(drawn, QRect(195, 45, 10, 160)));
}

REGISTER_TEST(RepaintRegionsTest, QApplication)
#include "repaintregionstest.moc"
