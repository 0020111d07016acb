#include "bench/desktop/pointmap.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QTest>

#include <cmath>

using Bench::PointMap;

class PointMapTest : public QObject {
    Q_OBJECT

private slots:
    void redIsInk();
    void theFurthestPixelCounts();
    void nothingIsInfinitelyFar();
};

void PointMapTest::redIsInk()
{
    // Given
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setPixelColor(3, 4, Qt::red);
    picture.setPixelColor(5, 6, QColor(223, 32, 32));
    picture.setPixelColor(7, 8, Qt::gray);

    // When
    const PointMap ink = PointMap::inkOf(picture);

    // Then
    QCOMPARE(ink.points(), (QList<QPoint>{{3, 4}, {5, 6}}));
    QVERIFY(ink.contains({3, 4}));
    QVERIFY(!ink.contains({30, 4}));
}

void PointMapTest::theFurthestPixelCounts()
{
    // Given
    PointMap map(QSize(40, 30));
    map.add({10, 10});
    map.add({30, 10});

    // Then
    QCOMPARE(map.furthest({{10, 10}, {30, 10}}), 0.0);
    QCOMPARE(map.furthest({{10, 10}, {13, 14}, {31, 10}}), 5.0);
    QCOMPARE(map.furthest({{20, 10}}), 10.0);
    QCOMPARE(map.furthest({{39, 29}}), std::hypot(9, 19));
}

void PointMapTest::nothingIsInfinitelyFar()
{
    QVERIFY(std::isinf(PointMap(QSize(10, 10)).furthest({{5, 5}})));
}

REGISTER_TEST(PointMapTest, QCoreApplication)
#include "pointmaptest.moc"
