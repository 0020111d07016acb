#include "os/x11/rootpicture.h"
#include "os/x11/sharedpicture.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/xconnection.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

/// Pictures of a server's screen on which every pixel is known, by both ways. In device pixels at every
/// scale.
class RootPictureTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void anAreaIsPicturedPixelForPixel_data();
    void anAreaIsPicturedPixelForPixel();
    void everyPixelIsOpaque();
    void aPictureCanBePaintedOn();
    void beyondTheScreenThereIsNoPicture_data();
    void beyondTheScreenThereIsNoPicture();

private:
    [[nodiscard]] QImage rootPicture(const QRect& area) const
    {
        QFETCH_GLOBAL(bool, shared);
        if (!shared)
            return osUtils::X11::rootPicture(x.raw(), area);
        const osUtils::X11::SharedPicture written(x.raw(), area.size());
        const bool isThere =
            written.isTaken() && written.reserve() && written.write(x.raw(), area.topLeft());
        return isThere ? written.picture() : QImage();
    }

    const XConnection x{qgetenv("DISPLAY")};
    const Backdrop backdrop{x};
};

void RootPictureTest::initTestCase_data()
{
    QTest::addColumn<bool>("shared");

    QTest::newRow("through the connection") << false;
    QTest::newRow("in shared memory") << true;
}

void RootPictureTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    backdrop.paintPattern();
}

void RootPictureTest::anAreaIsPicturedPixelForPixel_data()
{
    QTest::addColumn<QRect>("area");

    QTest::newRow("the whole screen") << QRect(QPoint(), x.size());
    QTest::newRow("a part") << QRect(33, 71, 255, 102);
    QTest::newRow("the last pixel") << QRect(x.size().width() - 1, x.size().height() - 1, 1, 1);
}

void RootPictureTest::anAreaIsPicturedPixelForPixel()
{
    // given
    QFETCH(QRect, area);

    // when
    const QImage picture = rootPicture(area);

    // then
    QCOMPARE(picture, Backdrop::pattern(x.size()).convertToFormat(QImage::Format_RGB32).copy(area));
}

void RootPictureTest::everyPixelIsOpaque()
{
    // when
    const QImage picture = rootPicture({0, 0, 40, 1});

    // then
    const auto* pixels = reinterpret_cast<const QRgb*>(picture.constScanLine(0));
    QVERIFY(std::all_of(pixels, pixels + 40, [](QRgb pixel) { return qAlpha(pixel) == 255; }));
}

void RootPictureTest::aPictureCanBePaintedOn()
{
    // given
    QImage picture = rootPicture({0, 0, 40, 20});
    const uchar* const memory = picture.constBits();

    // when
    picture.fill(Qt::blue);

    // then
    QCOMPARE(picture.constBits(), memory);
    QCOMPARE(picture.pixelColor(39, 19), QColor(Qt::blue));
}

void RootPictureTest::beyondTheScreenThereIsNoPicture_data()
{
    QTest::addColumn<QRect>("area");

    QTest::newRow("nothing") << QRect();
    QTest::newRow("left of it") << QRect(-10, 0, 20, 20);
    QTest::newRow("across its edge") << QRect(QPoint(), x.size() + QSize(1, 0));
    QTest::newRow("far below") << QRect(0, 20000, 10, 10);
}

void RootPictureTest::beyondTheScreenThereIsNoPicture()
{
    QFETCH(QRect, area);
    QVERIFY(rootPicture(area).isNull());
}

QTEST_MAIN(RootPictureTest)
#include "rootpicturetest.moc"
