#include "overlay/layerpixmap.h"

#include "tests/support/testprogram.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

#include <unistd.h>

using namespace Helpers::NQt;

namespace {

/// What of the process's memory is really there.
int residentMiB()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const auto pages = status.readAll().split(' ').value(1).toLongLong();
    return static_cast<int>(pages * sysconf(_SC_PAGESIZE) / 1024 / 1024);
}

}

/// Pixmaps to paint on.
class LayerPixmapTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aLayerHasThePixelsOfItsScreen_data();
    void aLayerHasThePixelsOfItsScreen();
    void aLayerIsFilled_data();
    void aLayerIsFilled();
    void aLayerIsPaintedOnInLogicalPixels();
    void aTransparentLayerTakesMemoryOnlyWhereItIsPaintedOn();
    void anEmptyLayerIsNull();
};

void LayerPixmapTest::aLayerHasThePixelsOfItsScreen_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QSize>("pixels");

    QTest::newRow("one to one") << QSize(30, 20) << 1.0 << QSize(30, 20);
    QTest::newRow("one and a half") << QSize(30, 20) << 1.5 << QSize(45, 30);
    QTest::newRow("one and a half, begun pixels") << QSize(31, 21) << 1.5 << QSize(47, 32);
    QTest::newRow("twice") << QSize(30, 20) << 2.0 << QSize(60, 40);
}

void LayerPixmapTest::aLayerHasThePixelsOfItsScreen()
{
    // given
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);

    // when
    const QPixmap layer = layerPixmap(size, ratio, Qt::red);

    // then
    QTEST(layer.size(), "pixels");
    QCOMPARE(layer.devicePixelRatio(), ratio);
}

void LayerPixmapTest::aLayerIsFilled_data()
{
    QTest::addColumn<QColor>("fill");

    QTest::newRow("opaque") << QColor(10, 20, 30);
    QTest::newRow("transparent") << QColor(0, 0, 0, 0);
}

void LayerPixmapTest::aLayerIsFilled()
{
    // given
    QFETCH(QColor, fill);
    QImage expected(6, 4, QImage::Format_ARGB32_Premultiplied);
    expected.fill(fill);

    // when
    const QPixmap layer = layerPixmap({3, 2}, 2.0, fill);

    // then
    QImage found = layer.toImage().convertToFormat(expected.format());
    found.setDevicePixelRatio(1.0);
    QCOMPARE(found, expected);
}

void LayerPixmapTest::aLayerIsPaintedOnInLogicalPixels()
{
    // given
    QPixmap layer = layerPixmap({10, 10}, 2.0, Qt::white);

    // when
    QPainter(&layer).fillRect(1, 2, 3, 4, Qt::black);

    // then
    const QImage image = layer.toImage();
    QCOMPARE(image.pixelColor(2, 4), QColor(Qt::black));
    QCOMPARE(image.pixelColor(7, 11), QColor(Qt::black));
    QCOMPARE(image.pixelColor(1, 4), QColor(Qt::white));
    QCOMPARE(image.pixelColor(8, 11), QColor(Qt::white));
}

void LayerPixmapTest::aTransparentLayerTakesMemoryOnlyWhereItIsPaintedOn()
{
    // given
    constexpr QSize large(4095, 4096);
    constexpr int itsMiB = 4095 * 4096 * 4 / 1024 / 1024;
    const int before = residentMiB();

    // when
    QPixmap layer = layerPixmap(large, 1.0, Qt::transparent);
    QPainter(&layer).fillRect(100, 100, 200, 200, Qt::red);

    // then
    QVERIFY(residentMiB() - before < itsMiB / 2);
    QVERIFY(layer.hasAlphaChannel());
    const QImage image = layer.toImage();
    QCOMPARE(image.pixelColor(150, 150), QColor(Qt::red));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::transparent));
    QCOMPARE(image.pixelColor(4094, 4095), QColor(Qt::transparent));
}

void LayerPixmapTest::anEmptyLayerIsNull()
{
    QVERIFY(layerPixmap({0, 0}, 2.0, Qt::transparent).isNull());
    QVERIFY(layerPixmap({10, 0}, 1.0, Qt::transparent).isNull());
}

REGISTER_TEST(LayerPixmapTest, QApplication)
#include "layerpixmaptest.moc"
