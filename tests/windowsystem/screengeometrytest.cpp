#include "windowsystem/screengeometry.h"

#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

using namespace Windowing;

/// Where screens lie, as arithmetic.
class ScreenGeometryTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aPointBelongsToAScreen_data();
    void aPointBelongsToAScreen();
    void anAreaCoversDevicePixels_data();
    void anAreaCoversDevicePixels();
    void theCoveringSizeReachesTheLastPixel_data();
    void theCoveringSizeReachesTheLastPixel();
    void aScreenIsOneOfTheMonitors_data();
    void aScreenIsOneOfTheMonitors();
};

void ScreenGeometryTest::aPointBelongsToAScreen_data()
{
    const QRect left(0, 0, 1920, 1080);
    const QRect right(1920, 0, 1280, 1024);
    const QRect apart(2000, 0, 800, 600);
    const QRect negative(-1280, -200, 1280, 1024);
    const QList<QRect> pair{left, right};

    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QList<QRect>>("screens");
    QTest::addColumn<int>("index");

    QTest::newRow("the only screen") << QPoint(5, 5) << QList<QRect>{left} << 0;
    QTest::newRow("no screen") << QPoint(5, 5) << QList<QRect>() << 0;
    QTest::newRow("first of two") << QPoint(100, 100) << pair << 0;
    QTest::newRow("second of two") << QPoint(2000, 100) << pair << 1;
    QTest::newRow("last column of the first") << QPoint(1919, 100) << pair << 0;
    QTest::newRow("first column of the second") << QPoint(1920, 100) << pair << 1;
    QTest::newRow("last row") << QPoint(2000, 1023) << pair << 1;
    QTest::newRow("below the shorter one, nearer to it") << QPoint(2500, 1030) << pair << 1;
    QTest::newRow("below the shorter one, nearer to the taller") << QPoint(1921, 1060) << pair << 0;
    QTest::newRow("far outside, to the right") << QPoint(90000, 0) << pair << 1;
    QTest::newRow("far outside, to the left") << QPoint(-90000, 0) << pair << 0;
    QTest::newRow("in the gap, nearer to the left")
        << QPoint(1930, 10) << QList<QRect>{left, apart} << 0;
    QTest::newRow("in the gap, nearer to the right")
        << QPoint(1990, 10) << QList<QRect>{left, apart} << 1;
    QTest::newRow("in the middle of the gap")
        << QPoint(15, 0) << QList<QRect>{{0, 0, 10, 10}, {21, 0, 10, 10}} << 0;
    QTest::newRow("in the middle of the gap, other order")
        << QPoint(15, 0) << QList<QRect>{{21, 0, 10, 10}, {0, 0, 10, 10}} << 0;
    QTest::newRow("left of the origin") << QPoint(-1, -200) << QList<QRect>{left, negative} << 1;
    QTest::newRow("first pixel of a negative screen")
        << QPoint(-1280, -200) << QList<QRect>{left, negative} << 1;
    QTest::newRow("above the origin's screen")
        << QPoint(10, -5) << QList<QRect>{left, negative} << 0;
    QTest::newRow("on mirrored screens") << QPoint(10, 10) << QList<QRect>{left, left} << 0;
    QTest::newRow("on the later one only")
        << QPoint(1500, 900) << QList<QRect>{{0, 0, 800, 600}, left} << 1;
    QTest::newRow("at the end of the numbers") << QPoint(2000000000, 2000000000) << pair << 1;
}

void ScreenGeometryTest::aPointBelongsToAScreen()
{
    // given
    QFETCH(QPoint, point);
    QFETCH(QList<QRect>, screens);

    // when
    const int index = screenHolding(point, screens);

    // then
    QTEST(index, "index");
}

void ScreenGeometryTest::anAreaCoversDevicePixels_data()
{
    QTest::addColumn<QRect>("area");
    QTest::addColumn<QPoint>("screenOrigin");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QRect>("pixels");

    QTest::newRow("one to one") << QRect(10, 20, 30, 40) << QPoint() << 1.0
                                << QRect(10, 20, 30, 40);
    QTest::newRow("one to one on another screen")
        << QRect(1930, 20, 30, 40) << QPoint(1920, 0) << 1.0 << QRect(1930, 20, 30, 40);
    QTest::newRow("twice") << QRect(10, 20, 30, 40) << QPoint() << 2.0 << QRect(20, 40, 60, 80);
    QTest::newRow("twice on another screen")
        << QRect(1930, 20, 30, 40) << QPoint(1920, 0) << 2.0 << QRect(1940, 40, 60, 80);
    QTest::newRow("twice left of the origin")
        << QRect(-1270, -190, 30, 40) << QPoint(-1280, -200) << 2.0 << QRect(-1260, -180, 60, 80);
    QTest::newRow("one and a half")
        << QRect(10, 20, 30, 40) << QPoint() << 1.5 << QRect(15, 30, 45, 60);
    QTest::newRow("a begun pixel counts")
        << QRect(0, 0, 911, 1) << QPoint() << 1.5 << QRect(0, 0, 1367, 2);
    QTest::newRow("reaching left of its screen")
        << QRect(95, 0, 10, 10) << QPoint(100, 0) << 2.0 << QRect(90, 0, 20, 20);
    QTest::newRow("empty") << QRect(10, 20, 0, 0) << QPoint() << 2.0 << QRect(20, 40, 0, 0);
}

void ScreenGeometryTest::anAreaCoversDevicePixels()
{
    // given
    QFETCH(QRect, area);
    QFETCH(QPoint, screenOrigin);
    QFETCH(qreal, ratio);

    // when
    const QRect pixels = deviceRect(area, screenOrigin, ratio);

    // then
    QTEST(pixels, "pixels");
}

void ScreenGeometryTest::theCoveringSizeReachesTheLastPixel_data()
{
    QTest::addColumn<QSize>("device");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QSize>("size");

    QTest::newRow("1") << QSize(1366, 768) << 1.0 << QSize(1366, 768);
    QTest::newRow("2, even") << QSize(1280, 800) << 2.0 << QSize(640, 400);
    QTest::newRow("2, odd") << QSize(1281, 801) << 2.0 << QSize(641, 401);
    QTest::newRow("1.5, rounded to the pixel") << QSize(1280, 800) << 1.5 << QSize(853, 533);
    QTest::newRow("1.5, a pixel beyond") << QSize(1366, 768) << 1.5 << QSize(911, 512);
    QTest::newRow("1.75, a pixel short") << QSize(1280, 800) << 1.75 << QSize(732, 457);
    QTest::newRow("3") << QSize(1280, 800) << 3.0 << QSize(427, 267);
    QTest::newRow("less than 1") << QSize(1280, 800) << 0.8 << QSize(1600, 1000);
}

void ScreenGeometryTest::theCoveringSizeReachesTheLastPixel()
{
    QFETCH(QSize, device);
    QFETCH(qreal, ratio);
    QFETCH(QSize, size);

    QCOMPARE(coveringSize(device, ratio), size);
}

void ScreenGeometryTest::aScreenIsOneOfTheMonitors_data()
{
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QRect>("place");

    QTest::newRow("exact") << QRect(0, 0, 1280, 800) << 1.0 << QRect(0, 0, 1280, 800);
    QTest::newRow("rounded up") << QRect(1280, 0, 911, 512) << 1.5 << QRect(1280, 0, 1366, 768);
    QTest::newRow("rounded down") << QRect(0, 0, 731, 457) << 1.75 << QRect(0, 0, 1280, 800);
    QTest::newRow("a projector that shows a part of it")
        << QRect(0, 0, 400, 300) << 2.0 << QRect(0, 0, 800, 600);
    QTest::newRow("of another size") << QRect(0, 0, 1000, 700) << 1.0 << QRect();
    QTest::newRow("elsewhere") << QRect(5, 5, 1280, 800) << 1.0 << QRect();
}

void ScreenGeometryTest::aScreenIsOneOfTheMonitors()
{
    // Given
    QFETCH(QRect, screen);
    QFETCH(qreal, ratio);
    QFETCH(QRect, place);
    const QList<QRect> monitors{{0, 0, 800, 600}, {0, 0, 1280, 800}, {1280, 0, 1366, 768}};

    // When
    const std::optional<QRect> found = monitorOf(screen, ratio, monitors);

    // Then
    QCOMPARE(found.value_or(QRect()), place);
}

REGISTER_TEST(ScreenGeometryTest, QCoreApplication)
#include "screengeometrytest.moc"
