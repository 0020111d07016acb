#include "pen/stroke.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace VcAction::Frame;

class StrokeTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void aSegmentsBoxReachesAPenWidthBeyondBothPoints_data();
    void aSegmentsBoxReachesAPenWidthBeyondBothPoints();
    void theTouchedBoxHoldsThePensEdge_data();
    void theTouchedBoxHoldsThePensEdge();
    void theTouchedBoxIsNotMuchLargerThanThePen();
    void noPenWidthIsTooMuch_data();
    void noPenWidthIsTooMuch();
    void aShapesBoxSpansBothPoints_data();
    void aShapesBoxSpansBothPoints();
    void betweenStrokesOnlyTheTipsPlaceIsLive();
    void aPressIsADot();
    void aMoveAddsASegmentToAStroke();
    void aMoveDragsAShapeOut();
};

void StrokeTest::aSegmentsBoxReachesAPenWidthBeyondBothPoints_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<int>("width");
    QTest::addColumn<QRect>("box");

    QTest::newRow("rightwards") << QPointF(10, 20) << QPointF(40, 20) << 5 << QRect(5, 15, 40, 10);
    QTest::newRow("leftwards") << QPointF(40, 20) << QPointF(10, 20) << 5 << QRect(5, 15, 40, 10);
    QTest::newRow("upwards") << QPointF(10, 50) << QPointF(10, 20) << 5 << QRect(5, 15, 10, 40);
    QTest::newRow("aslant") << QPointF(10, 50) << QPointF(30, 20) << 8 << QRect(2, 12, 36, 46);
    QTest::newRow("no length") << QPointF(10, 20) << QPointF(10, 20) << 20 << QRect(-10, 0, 40, 40);
    QTest::newRow("between pixels")
        << QPointF(10.5, 20) << QPointF(12, 20.5) << 1 << QRect(9, 19, 4, 3);
    QTest::newRow("no width") << QPointF(10, 20) << QPointF(30, 50) << 0 << QRect(10, 20, 20, 30);
    QTest::newRow("no width, no length") << QPointF(10, 20) << QPointF(10, 20) << 0 << QRect();
}

void StrokeTest::aSegmentsBoxReachesAPenWidthBeyondBothPoints()
{
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(int, width);
    QFETCH(QRect, box);

    const QRect result = segmentBox(from, to, width);

    if (box.isEmpty())
        QVERIFY(result.isEmpty());
    else
        QCOMPARE(result, box);
}

void StrokeTest::theTouchedBoxHoldsThePensEdge_data()
{
    QTest::addColumn<int>("width");

    for (const int width : {-5, 0, 1, 2, 7, 20, 33})
        QTest::addRow("width %d", width) << width;
}

void StrokeTest::theTouchedBoxHoldsThePensEdge()
{
    // Given
    QFETCH(int, width);
    const QPointF from(100, 60.5);
    const QPointF to(80.5, 90);
    const qreal reach = std::max(width, 1) / 2.0 + 1;

    // When
    const QRectF box = touchedBox(from, to, width);

    // Then
    QVERIFY(box.contains(QRectF(80.5 - reach, 60.5 - reach, 19.5 + 2 * reach, 29.5 + 2 * reach)));
}

void StrokeTest::theTouchedBoxIsNotMuchLargerThanThePen()
{
    const QRect box = touchedBox(QPointF(100, 100), QPointF(100, 100), 20);

    QVERIFY(QRect(86, 86, 28, 28).contains(box));
}

void StrokeTest::noPenWidthIsTooMuch_data()
{
    QTest::addColumn<int>("width");

    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
    QTest::newRow("beyond any frame") << 1000000;
    QTest::newRow("below nothing") << -1000000;
}

void StrokeTest::noPenWidthIsTooMuch()
{
    // Given
    QFETCH(int, width);
    const QPointF from(0, 0);
    const QPointF to(32767, 32767);
    const QRect largestFrame(0, 0, 32768, 32768);
    const QRect room(-200000, -200000, 500000, 500000);

    // When
    const QRect segment = segmentBox(from, to, width);
    const QRect touched = touchedBox(from, to, width);

    // Then
    QVERIFY(width < 0 || segment.contains(largestFrame));
    QVERIFY(room.contains(segment));
    QVERIFY(room.contains(touched));
    QVERIFY(touched.contains(QRect(0, 0, 32767, 32767)));
}

void StrokeTest::aShapesBoxSpansBothPoints_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("box");

    const QRect box(QPoint(20, 30), QPoint(50, 45));
    QTest::newRow("right and down") << QPoint(20, 30) << QPoint(50, 45) << box;
    QTest::newRow("left and down") << QPoint(50, 30) << QPoint(20, 45) << box;
    QTest::newRow("right and up") << QPoint(20, 45) << QPoint(50, 30) << box;
    QTest::newRow("left and up") << QPoint(50, 45) << QPoint(20, 30) << box;
    QTest::newRow("not at all") << QPoint(7, 8) << QPoint(7, 8) << QRect(7, 8, 1, 1);
}

void StrokeTest::aShapesBoxSpansBothPoints()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);

    const QRect result = shapeBox(from, to);

    QTEST(result, "box");
}

void StrokeTest::betweenStrokesOnlyTheTipsPlaceIsLive()
{
    // Given
    Stroke stroke{Freehand, 10};

    // When
    stroke.moveTo({20, 20});
    stroke.moveTo({100, 60});

    // Then
    QCOMPARE(stroke.liveBox(), touchedBox({100, 60}, {100, 60}, 10));

    // When
    stroke.style = Ellipse;

    // Then
    QVERIFY(stroke.liveBox().isEmpty());
}

void StrokeTest::aPressIsADot()
{
    // Given
    Stroke stroke{Freehand, 10};
    stroke.moveTo({20, 20});

    // When
    stroke.begin({100, 60});

    // Then
    QVERIFY(stroke.drawing);
    QCOMPARE(stroke.drawRect(), segmentBox({100, 60}, {100, 60}, 10));
    QCOMPARE(stroke.liveBox(), touchedBox({100, 60}, {100, 60}, 10));
}

void StrokeTest::aMoveAddsASegmentToAStroke()
{
    // Given
    Stroke stroke{Freehand, 10};
    stroke.begin({100, 60});
    stroke.moveTo({120, 60});

    // When
    stroke.moveTo({120, 90.5});

    // Then
    QCOMPARE(stroke.drawRect(), segmentBox({120, 60}, {120, 90.5}, 10));
    QCOMPARE(stroke.liveBox(), touchedBox({120, 60}, {120, 90.5}, 10));
}

void StrokeTest::aMoveDragsAShapeOut()
{
    // Given
    Stroke stroke{RoundRect, 10};
    stroke.begin({100, 60});
    stroke.moveTo({120, 60});

    // When
    stroke.moveTo({80.4, 90.5});

    // Then
    QCOMPARE(stroke.drawRect(), shapeBox({100, 60}, {80, 91}));
    QVERIFY(stroke.liveBox().contains(stroke.drawRect().adjusted(-1, -1, 1, 1)));
}

REGISTER_TEST(StrokeTest, QCoreApplication)
#include "stroketest.moc"
