#include "overlay/transparentframe.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/overlay/enginepicture.h"
#include "tests/support/testprogram.h"
#include "tests/support/windowprobe.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

using namespace Helpers::NQt;

namespace {

constexpr int screenshotEngine = 0;
/// The screen of this number is pictured with all others.
constexpr int wholeDesktopScreen = 1;

}

/// Pictures of a screen on which every pixel is known.
class EnginePictureTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void theScreenIsGrabbedOneToOne();
    void theDesktopIsGrabbedOneToOne();
    void aPartIsGrabbedOneToOne_data();
    void aPartIsGrabbedOneToOne();
    void outsideTheScreenThereIsBlack();
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

void EnginePictureTest::initTestCase()
{
    screen = QGuiApplication::primaryScreen();
    pattern = Backdrop::pattern(x.size());
    QCOMPARE(QGuiApplication::screens().size(), 1);
}

void EnginePictureTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    backdrop.paintPattern();
}

QRect EnginePictureTest::toPixels(const QRect& logical) const
{
    const qreal ratio = screen->devicePixelRatio();
    return {(QPointF(logical.topLeft()) * ratio).toPoint(),
            (QSizeF(logical.size()) * ratio).toSize()};
}

void EnginePictureTest::theScreenIsGrabbedOneToOne()
{
    // when
    const QPixmap taken = pictureTaken(screen->geometry(), 0);

    // then
    QCOMPARE(taken.devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(taken), pattern);
}

void EnginePictureTest::theDesktopIsGrabbedOneToOne()
{
    // when
    const QPixmap taken = pictureTaken(QRect(0, 0, 10, 10), wholeDesktopScreen);

    // then
    QCOMPARE(taken.devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(taken), pattern);
}

void EnginePictureTest::aPartIsGrabbedOneToOne_data()
{
    QTest::addColumn<QRect>("area");

    QTest::newRow("amid the screen") << QRect(100, 50, 300, 200);
    QTest::newRow("at the corner") << QRect(0, 0, 64, 32);
    QTest::newRow("one pixel") << QRect(200, 100, 2, 2);
}

void EnginePictureTest::aPartIsGrabbedOneToOne()
{
    // given
    QFETCH(QRect, area);

    // when
    const QPixmap taken = pictureTaken(area, 0);

    // then
    QCOMPARE(taken.devicePixelRatio(), screen->devicePixelRatio());
    QCOMPARE(pixels(taken), pattern.copy(toPixels(area)));
}

void EnginePictureTest::outsideTheScreenThereIsBlack()
{
    // given
    const QRect area(-10, -20, 40, 60);

    // when
    const QPixmap taken = pictureTaken(area, 0);

    // then
    QCOMPARE(pixels(taken), pattern.copy(toPixels(area)));
    QCOMPARE(taken.toImage().pixelColor(0, 0), QColor(Qt::black));
}

void EnginePictureTest::thePictureShowsTheScreenAsItIsNow()
{
    // given
    const QPixmap before = pictureTaken(QRect(0, 0, 4, 4), 0);

    // when
    backdrop.fill(QColor(1, 2, 3));
    const QPixmap after = pictureTaken(QRect(0, 0, 4, 4), 0);

    // then
    QCOMPARE(pixels(before).pixelColor(1, 0), QColor(1, 0, 0));
    QCOMPARE(pixels(after).pixelColor(1, 0), QColor(1, 2, 3));
}

void EnginePictureTest::aFrameHoldsThePictureOfItsPlace_data()
{
    QTest::addColumn<QSize>("asked");

    QTest::newRow("over the screen") << QSize(0, 0);
    QTest::newRow("smaller") << QSize(300, 200);
}

void EnginePictureTest::aFrameHoldsThePictureOfItsPlace()
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

void EnginePictureTest::aResizedFrameTakesANewPicture()
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

REGISTER_TEST(EnginePictureTest, QApplication)
#include "enginepicturetest.moc"
