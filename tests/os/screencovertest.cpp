#include "os/screencover.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils::System;

/// Sizes that cover a screen, as arithmetic.
class ScreenCoverTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theCoveringSizeReachesTheLastPixel_data();
    void theCoveringSizeReachesTheLastPixel();
    void aScreenIsOneOfTheMonitors_data();
    void aScreenIsOneOfTheMonitors();
};

void ScreenCoverTest::theCoveringSizeReachesTheLastPixel_data()
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

void ScreenCoverTest::theCoveringSizeReachesTheLastPixel()
{
    QFETCH(QSize, device);
    QFETCH(qreal, ratio);
    QFETCH(QSize, size);

    QCOMPARE(coveringSize(device, ratio), size);
}

void ScreenCoverTest::aScreenIsOneOfTheMonitors_data()
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

void ScreenCoverTest::aScreenIsOneOfTheMonitors()
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

QTEST_GUILESS_MAIN(ScreenCoverTest)
#include "screencovertest.moc"
