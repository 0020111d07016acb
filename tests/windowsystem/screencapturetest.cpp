#include "windowsystem/x11/x11screencapture.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/screen.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/support/testprogram.h"
#include "tests/support/windowprobe.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <memory>

using namespace Windowing;
using X11::X11ScreenCapture;

namespace {

/// What is done with a capture before it is forgotten.
using Use = void (*)(ScreenCapture&);

/// A window of this program over the whole screen, white where nothing is shown.
class WhiteWindow : public ClientWindow {
public:
    explicit WhiteWindow(const XConnection& connection, QSize size)
        : ClientWindow(connection, Kind::Unmanaged, QRect({0, 0}, size), Qt::white)
        , window(QWindow::fromWinId(id()))
    {
    }

    QWindow& operator*() const { return *window; }

private:
    std::unique_ptr<QWindow> window;
};

}

/// Pictures of a screen on which every pixel is known. In device pixels at every scale.
class ScreenCaptureTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theScreenIsPicturedPixelForPixel_data();
    void theScreenIsPicturedPixelForPixel();
    void everyPixelIsOpaque();
    void aPictureCanBePaintedOn();
    void aPictureStaysWhenItsCaptureIsGone();
    void itShowsWhatTheScreenShowedWhenItWasBegun();
    void itCanBePaintedFromBeforeItIsComplete();
    void onceCompletedItHasNoDraft();
    void beyondTheScreenQtsOwnGrabHasToDo();
    void oneThatNobodyTakesIsNoHarm_data();
    void oneThatNobodyTakesIsNoHarm();
    void itIsShownInTheRegion_data();
    void itIsShownInTheRegion();
    void onceCompletedItIsStillShown();
    void itIsShownAsItIsNow();
    void anotherPictureIsNotShown();
    void aWindowOfAnotherSizeIsLeftAlone_data();
    void aWindowOfAnotherSizeIsLeftAlone();
    void aWindowOfAnotherDepthIsLeftAlone();

private:
    [[nodiscard]] QImage pattern() const
    {
        return Backdrop::pattern(x.size()).convertToFormat(QImage::Format_RGB32);
    }
    [[nodiscard]] std::unique_ptr<ScreenCapture> capture() const
    {
        return std::make_unique<X11ScreenCapture>(*QGuiApplication::primaryScreen(), whole());
    }
    [[nodiscard]] QRect whole() const { return {QPoint(), x.size()}; }

    const XConnection x{qgetenv("DISPLAY")};
    const Backdrop backdrop{x};
    const Screen screen{x};
};

void ScreenCaptureTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    backdrop.paintPattern();
}

void ScreenCaptureTest::theScreenIsPicturedPixelForPixel_data()
{
    QTest::addColumn<bool>("shared");

    QTest::newRow("written by the server") << true;
    QTest::newRow("by Qt") << false;
}

void ScreenCaptureTest::theScreenIsPicturedPixelForPixel()
{
    // given
    QFETCH(bool, shared);
    const auto taken =
        shared ? capture() : std::make_unique<ScreenCapture>(*QGuiApplication::primaryScreen());

    // when
    taken->begin();
    taken->secure();

    // then
    QCOMPARE(taken->origin(), QPoint(0, 0));
    QCOMPARE(taken->draft().isNull(), !shared);
    QCOMPARE(taken->image().convertToFormat(QImage::Format_RGB32), pattern());
    QCOMPARE(taken->image().devicePixelRatio(), 1.0);
}

void ScreenCaptureTest::everyPixelIsOpaque()
{
    // given
    const auto taken = capture();

    // when
    taken->secure();
    const QImage picture = taken->image();

    // then
    const auto* pixels = reinterpret_cast<const QRgb*>(picture.constScanLine(0));
    QVERIFY(std::all_of(pixels, pixels + picture.width() * picture.height(),
                        [](QRgb pixel) { return qAlpha(pixel) == 255; }));
}

void ScreenCaptureTest::aPictureCanBePaintedOn()
{
    // given
    const auto taken = capture();
    taken->secure();
    QImage picture = taken->image();
    const uchar* const memory = picture.constBits();

    // when
    picture.fill(Qt::blue);

    // then
    QCOMPARE(picture.constBits(), memory);
    QCOMPARE(picture.pixelColor(39, 19), QColor(Qt::blue));
}

void ScreenCaptureTest::aPictureStaysWhenItsCaptureIsGone()
{
    // given
    auto taken = capture();
    taken->secure();
    const QImage picture = taken->image();

    // when
    taken.reset();

    // then
    QCOMPARE(picture, pattern());
}

void ScreenCaptureTest::itShowsWhatTheScreenShowedWhenItWasBegun()
{
    // given
    backdrop.fill(Qt::white);
    const auto taken = capture();

    // when
    backdrop.paintPattern();
    taken->begin();

    // then
    taken->secure();
    QCOMPARE(taken->image(), pattern());
}

void ScreenCaptureTest::itCanBePaintedFromBeforeItIsComplete()
{
    // given
    const auto taken = capture();
    QVERIFY(taken->draft().isNull());

    // when
    taken->secure();
    QImage painted(x.size(), QImage::Format_RGB32);
    QPainter(&painted).drawImage(0, 0, taken->draft());

    // then
    const QImage wanted = pattern();
    for (int row = 0; row < painted.height(); ++row) {
        const auto* colours = reinterpret_cast<const QRgb*>(painted.constScanLine(row));
        QVERIFY(std::equal(
            colours, colours + painted.width(),
            reinterpret_cast<const QRgb*>(wanted.constScanLine(row)),
            [](QRgb first, QRgb second) { return (first & RGB_MASK) == (second & RGB_MASK); }));
    }
}

void ScreenCaptureTest::onceCompletedItHasNoDraft()
{
    // given
    const auto taken = capture();
    taken->secure();
    QVERIFY(!taken->draft().isNull());

    // when
    taken->complete();

    // then
    QVERIFY(taken->draft().isNull());
    QCOMPARE(taken->image(), pattern());
}

void ScreenCaptureTest::beyondTheScreenQtsOwnGrabHasToDo()
{
    // given: a screen that has become smaller meanwhile
    X11ScreenCapture taken(*QGuiApplication::primaryScreen(), whole().adjusted(0, 0, 1, 0));

    // when
    taken.secure();

    // then
    QVERIFY(taken.draft().isNull());
    QCOMPARE(taken.image().convertToFormat(QImage::Format_RGB32), pattern());
}

void ScreenCaptureTest::oneThatNobodyTakesIsNoHarm_data()
{
    QTest::addColumn<Use>("use");

    QTest::newRow("never begun") << Use([](ScreenCapture&) {});
    QTest::newRow("begun") << Use([](ScreenCapture& taken) { taken.begin(); });
    QTest::newRow("secured") << Use([](ScreenCapture& taken) { taken.secure(); });
    QTest::newRow("completed") << Use([](ScreenCapture& taken) {
        taken.secure();
        taken.complete();
    });
}

void ScreenCaptureTest::oneThatNobodyTakesIsNoHarm()
{
    QFETCH(Use, use);
    use(*capture());

    const auto next = capture();
    next->secure();
    QCOMPARE(next->image(), pattern());
}

void ScreenCaptureTest::itIsShownInTheRegion_data()
{
    QTest::addColumn<QRegion>("region");

    QTest::newRow("all") << QRegion(whole());
    QTest::newRow("a part") << QRegion(10, 5, 20, 30);
    QTest::newRow("all but a part") << QRegion(whole()) - QRegion(10, 5, 20, 30);
    QTest::newRow("two parts") << (QRegion(0, 0, 3, 3) | QRegion(57, 37, 3, 3));
}

void ScreenCaptureTest::itIsShownInTheRegion()
{
    // given
    QFETCH(QRegion, region);
    const auto taken = capture();
    taken->secure();
    const WhiteWindow window(x, x.size());
    QImage wanted = screen.grab();
    QPainter painter(&wanted);
    painter.setClipRegion(region);
    painter.drawImage(0, 0, pattern());
    painter.end();

    // when
    const bool isShown = taken->show({}, *window, region);

    // then
    QVERIFY(isShown);
    finishQtRequests();
    QCOMPARE(screen.grab(), wanted);
}

void ScreenCaptureTest::onceCompletedItIsStillShown()
{
    // given
    const auto taken = capture();
    taken->secure();
    const WhiteWindow window(x, x.size());

    // when
    taken->complete();

    // then
    QVERIFY(taken->show({}, *window, whole()));
}

void ScreenCaptureTest::itIsShownAsItIsNow()
{
    // given
    const auto taken = capture();
    taken->secure();
    QImage picture = taken->image();
    const WhiteWindow window(x, x.size());

    // when
    picture.setPixelColor(0, 0, Qt::green);
    const bool isShown = taken->show(picture, *window, whole());

    // then
    QVERIFY(isShown);
    finishQtRequests();
    QCOMPARE(screen.colourAt({0, 0}), QColor(Qt::green));
}

void ScreenCaptureTest::anotherPictureIsNotShown()
{
    // given
    const auto taken = capture();
    taken->secure();
    const WhiteWindow window(x, x.size());

    // then
    QVERIFY(!taken->show(taken->image().copy(), *window, whole()));
    QVERIFY(!capture()->show({}, *window, whole()));
}

void ScreenCaptureTest::aWindowOfAnotherSizeIsLeftAlone_data()
{
    QTest::addColumn<QSize>("windowSize");

    QTest::newRow("a column more") << x.size() + QSize(1, 0);
    QTest::newRow("a row less") << x.size() - QSize(0, 1);
}

void ScreenCaptureTest::aWindowOfAnotherSizeIsLeftAlone()
{
    // given
    QFETCH(QSize, windowSize);
    const auto taken = capture();
    taken->secure();
    const WhiteWindow window(x, windowSize);

    // then
    QVERIFY(!taken->show({}, *window, whole()));
    QCOMPARE(screen.colourAt({30, 20}), QColor(Qt::white));
}

void ScreenCaptureTest::aWindowOfAnotherDepthIsLeftAlone()
{
    // given: one that lets the desktop through
    const auto taken = capture();
    taken->secure();
    QWindow window;
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    window.setFormat(translucent);
    window.resize(QGuiApplication::primaryScreen()->size());
    window.create();

    // then
    QVERIFY(!taken->show({}, window, whole()));
    finishQtRequests();
}

REGISTER_TEST(ScreenCaptureTest, QGuiApplication)
#include "screencapturetest.moc"
