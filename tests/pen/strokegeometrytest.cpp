#include "pen/strokegeometry.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace VcAction::Frame;

class StrokeGeometryTest : public QObject {
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
};

void StrokeGeometryTest::aSegmentsBoxReachesAPenWidthBeyondBothPoints_data()
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

void StrokeGeometryTest::aSegmentsBoxReachesAPenWidthBeyondBothPoints()
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

void StrokeGeometryTest::theTouchedBoxHoldsThePensEdge_data()
{
    QTest::addColumn<int>("width");

    for (const int width : {-5, 0, 1, 2, 7, 20, 33})
        QTest::addRow("width %d", width) << width;
}

void StrokeGeometryTest::theTouchedBoxHoldsThePensEdge()
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

void StrokeGeometryTest::theTouchedBoxIsNotMuchLargerThanThePen()
{
    const QRect box = touchedBox(QPointF(100, 100), QPointF(100, 100), 20);

    QVERIFY(QRect(86, 86, 28, 28).contains(box));
}

void StrokeGeometryTest::noPenWidthIsTooMuch_data()
{
    QTest::addColumn<int>("width");

    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
    QTest::newRow("beyond any frame") << 1000000;
    QTest::newRow("below nothing") << -1000000;
}

void StrokeGeometryTest::noPenWidthIsTooMuch()
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

void StrokeGeometryTest::aShapesBoxSpansBothPoints_data()
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

void StrokeGeometryTest::aShapesBoxSpansBothPoints()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);

    const QRect result = shapeBox(from, to);

    QTEST(result, "box");
}

REGISTER_TEST(StrokeGeometryTest, QCoreApplication)
#include "strokegeometrytest.moc"
