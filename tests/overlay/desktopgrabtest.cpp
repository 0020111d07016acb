#include "overlay/desktopgrab.h"

#include "overlay/screengeometry.h"
#include "overlay/transparentframe.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/support/windowprobe.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

using namespace Helpers::NQt;

namespace {

constexpr int screenshotEngine = 0;

/// The picture's own pixels, ready for comparing.
QImage pixels(const QPixmap& picture)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1.0);
    return image;
}

}

/// Pictures of a screen on which every pixel is known.
class DesktopGrabTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void theScreenIsGrabbedOneToOne();
    void theDesktopIsGrabbedOneToOne();
    void aPartIsGrabbedOneToOne_data();
    void aPartIsGrabbedOneToOne();
    void outsideTheScreenThereIsBlack();
    void anEmptyAreaIsNoPicture();
    void thePictureShowsTheScreenAsItIsNow();
    void aFrameHoldsThePictureOfItsPlace_data();
    void aFrameHoldsThePictureOfItsPlace();
    void aResizedFrameTakesANewPicture();

private:
    [[nodiscard]] QRect toPixels(const QRect& logical) const;

    const XConnection x{qgetenv("DISPLAY")};
    const Backdrop backdrop{x};
    QImage pattern;
    QScreen* screen = nullptr;
};

void DesktopGrabTest::initTestCase()
{
    screen = QGuiApplication::primaryScreen();
    pattern = Backdrop::pattern(x.size());
    QCOMPARE(QGuiApplication::screens().size(), 1);
}

void DesktopGrabTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    backdrop.paintPattern();
}

QRect DesktopGrabTest::toPixels(const QRect& logical) const
{
    const qreal ratio = screen->devicePixelRatio();
    return {(QPointF(logical.topLeft()) * ratio).toPoint(),
            (QSizeF(logical.size()) * ratio).toSize()};
}

void DesktopGrabTest::theScreenIsGrabbedOneToOne()
{
    // when
    const QPixmap picture = DesktopGrab::ofArea(screen->geometry(), *screen).take();

    // then
    QCOMPARE(picture.devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(picture), pattern);
}

void DesktopGrabTest::theDesktopIsGrabbedOneToOne()
{
    // when
    const QPixmap picture = DesktopGrab::ofDesktop(*screen).take();

    // then
    QCOMPARE(picture.devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(picture), pattern);
}

void DesktopGrabTest::aPartIsGrabbedOneToOne_data()
{
    QTest::addColumn<QRect>("area");

    QTest::newRow("amid the screen") << QRect(100, 50, 300, 200);
    QTest::newRow("at the corner") << QRect(0, 0, 64, 32);
    QTest::newRow("one pixel") << QRect(200, 100, 2, 2);
}

void DesktopGrabTest::aPartIsGrabbedOneToOne()
{
    // given
    QFETCH(QRect, area);

    // when
    const QPixmap picture = DesktopGrab::ofArea(area, *screen).take();

    // then
    QCOMPARE(picture.devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(picture), pattern.copy(toPixels(area)));
}

void DesktopGrabTest::outsideTheScreenThereIsBlack()
{
    // given
    const QRect area(-10, -20, 40, 60);

    // when
    const QPixmap picture = DesktopGrab::ofArea(area, *screen).take();

    // then
    QCOMPARE(pixels(picture), pattern.copy(toPixels(area)));
    QCOMPARE(picture.toImage().pixelColor(0, 0), QColor(Qt::black));
}

void DesktopGrabTest::anEmptyAreaIsNoPicture()
{
    QVERIFY(DesktopGrab::ofArea(QRect(5, 5, 0, 0), *screen).take().isNull());
    QVERIFY(DesktopGrab::ofArea(QRect(5, 5, 10, 0), *screen).take().isNull());
}

void DesktopGrabTest::thePictureShowsTheScreenAsItIsNow()
{
    // given
    const QPixmap before = DesktopGrab::ofArea(QRect(0, 0, 4, 4), *screen).take();

    // when
    backdrop.fill(QColor(1, 2, 3));
    const QPixmap after = DesktopGrab::ofArea(QRect(0, 0, 4, 4), *screen).take();

    // then
    QCOMPARE(pixels(before).pixelColor(1, 0), QColor(1, 0, 0));
    QCOMPARE(pixels(after).pixelColor(1, 0), QColor(1, 2, 3));
}

void DesktopGrabTest::aFrameHoldsThePictureOfItsPlace_data()
{
    QTest::addColumn<QSize>("asked");

    QTest::newRow("over the screen") << QSize(0, 0);
    QTest::newRow("smaller") << QSize(300, 200);
}

void DesktopGrabTest::aFrameHoldsThePictureOfItsPlace()
{
    // given
    QFETCH(QSize, asked);

    // when
    TransparentFrame frame(nullptr, screenshotEngine, asked.width(), asked.height());

    // then
    const QRect place = asked.isEmpty() ? pattern.rect() : toPixels({QPoint(), asked});
    QCOMPARE(frame.background()->devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(*frame.background()), pattern.copy(place));
}

void DesktopGrabTest::aResizedFrameTakesANewPicture()
{
    // given
    TransparentFrame frame(nullptr, screenshotEngine, 300, 200);
    frame.setAttribute(Qt::WA_PendingResizeEvent, false);
    backdrop.fill(QColor(1, 2, 3));

    // when
    frame.resize(200, 100);
    frame.grab();

    // then
    QImage expected(toPixels({0, 0, 200, 100}).size(), QImage::Format_RGB32);
    expected.fill(QColor(1, 2, 3));
    QCOMPARE(pixels(*frame.background()), expected);
}

QTEST_MAIN(DesktopGrabTest)
#include "desktopgrabtest.moc"
