#include "overlay/frameenginess.h"
#include "overlay/transparentframe.h"
#include "windowsystem/screengeometry.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/screen.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace Helpers::NQt;

namespace {

// In logical pixels.
constexpr QRect drawn(100, 80, 40, 30);
constexpr QRect childPlace(300, 200, 50, 20);
constexpr QRect canvasPlace(200, 100, 30, 60);

/// Draws one rectangle, and has a child in green. Remembers what of it Qt has painted.
class DrawingFrame : public TransparentFrame {
public:
    explicit DrawingFrame(int engineType = ScreenshotEngine)
        : TransparentFrame(nullptr, engineType, 0, 0)
    {
        setWindowFlag(Qt::BypassWindowManagerHint);
        child.setGeometry(childPlace);
        child.setAutoFillBackground(true);
        child.setPalette(Qt::green);
        winId();
        paintOnly(&DrawingFrame::inkRegion);
    }

    void draw(QPaintDevice* device) override
    {
        QPainter painter(device);
        painter.fillRect(drawn, colour);
    }
    [[nodiscard]] QRegion inkRegion() const { return knowsWhatItDraws ? drawn : rect(); }

    void markCanvas(const QColor& canvasColour)
    {
        QPainter painter(paintDevice());
        painter.fillRect(canvasPlace, canvasColour);
        painter.end();
        update(canvasPlace);
    }

    QColor colour = Qt::red;
    bool knowsWhatItDraws = true;
    QRegion painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        painted += event->region();
        TransparentFrame::paintEvent(event);
    }

private:
    QWidget child{this};
};

/// The child paints itself, and all of its place.
QRegion allButTheChild(const QWidget& frame)
{
    return QRegion(frame.rect()) - childPlace;
}

}

/// What a frame shows of its background when its window comes to light.
class BackgroundExposureTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theWholeFrameIsShown();
    void onlyWhatIsDrawnIsPainted();
    void aFrameThatDrawsAnywhereIsPaintedWhole();
    void whatIsUncoveredIsShownAgain_data();
    void whatIsUncoveredIsShownAgain();
    void whatIsPaintedOnThePictureIsShownAgain();
    void anotherPictureInItsPlaceIsShownAgain();
    void aFrameThatIsShownAgainShowsWhatHasChanged_data();
    void aFrameThatIsShownAgainShowsWhatHasChanged();
    void aFrameOfTheLiveDesktopIsPaintedWhole();
    void whatIsDrawnElsewhereIsOpaque();

private:
    [[nodiscard]] QRect device(const QRect& part, const QWidget& frame) const;
    void expect(const QRect& part, const QColor& colour, const QWidget& frame);
    void expectDrawn(const DrawingFrame& frame);
    void coverAndUncover(const QRect& part) const;
    [[nodiscard]] bool isShown() const { return difference(screen.grab(), expected).isEmpty(); }

    const XConnection x{qgetenv("DISPLAY")};
    const Backdrop backdrop{x};
    const Screen screen{x};
    QImage expected;
};

void BackgroundExposureTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    backdrop.paintPattern();
    expected = Backdrop::pattern(x.size());
}

QRect BackgroundExposureTest::device(const QRect& part, const QWidget& frame) const
{
    return Windowing::deviceRegion(part, frame.devicePixelRatioF()).boundingRect();
}

void BackgroundExposureTest::expect(const QRect& part, const QColor& colour, const QWidget& frame)
{
    QPainter(&expected).fillRect(device(part, frame), colour);
}

void BackgroundExposureTest::expectDrawn(const DrawingFrame& frame)
{
    expect(drawn, frame.colour, frame);
    expect(childPlace, Qt::green, frame);
}

void BackgroundExposureTest::coverAndUncover(const QRect& part) const
{
    const ClientWindow cover(x, ClientWindow::Kind::Unmanaged, part, Qt::yellow);
    EVENTUALLY_COMPARE(screen.colourAt(part.center()), QColor(Qt::yellow));
}

void BackgroundExposureTest::theWholeFrameIsShown()
{
    // given
    DrawingFrame frame;
    expectDrawn(frame);

    // when
    frame.show();

    // then
    EVENTUALLY(isShown());
}

void BackgroundExposureTest::onlyWhatIsDrawnIsPainted()
{
    // given
    DrawingFrame frame;
    expectDrawn(frame);

    // when
    frame.show();
    EVENTUALLY(isShown());

    // then
    if (!qFuzzyCompare(frame.devicePixelRatioF(), qRound(frame.devicePixelRatioF())))
        QSKIP("the window is not of the screen's size in device pixels");
    QCOMPARE(frame.painted, QRegion(drawn));
}

void BackgroundExposureTest::aFrameThatDrawsAnywhereIsPaintedWhole()
{
    // given
    DrawingFrame frame;
    frame.knowsWhatItDraws = false;
    expectDrawn(frame);

    // when
    frame.show();

    // then
    EVENTUALLY(isShown());
    QCOMPARE(frame.painted, allButTheChild(frame));
}

void BackgroundExposureTest::whatIsUncoveredIsShownAgain_data()
{
    QTest::addColumn<QRect>("cover");

    QTest::newRow("the background") << QRect(5, 5, 50, 50);
    QTest::newRow("what is drawn") << drawn;
    QTest::newRow("a part of each") << QRect(20, 20, 400, 300);
    QTest::newRow("all") << QRect(0, 0, 1280, 800);
}

void BackgroundExposureTest::whatIsUncoveredIsShownAgain()
{
    // given
    QFETCH(QRect, cover);
    DrawingFrame frame;
    expectDrawn(frame);
    frame.show();
    EVENTUALLY(isShown());

    // when
    coverAndUncover(device(cover, frame) & screen.area());

    // then
    EVENTUALLY(isShown());
}

void BackgroundExposureTest::whatIsPaintedOnThePictureIsShownAgain()
{
    // given
    DrawingFrame frame;
    expectDrawn(frame);
    frame.show();
    EVENTUALLY(isShown());
    frame.markCanvas(Qt::blue);
    expect(canvasPlace, Qt::blue, frame);
    EVENTUALLY(isShown());

    // when
    coverAndUncover(device(QRect(150, 50, 100, 150), frame));

    // then
    EVENTUALLY(isShown());
}

void BackgroundExposureTest::anotherPictureInItsPlaceIsShownAgain()
{
    // given
    DrawingFrame frame;
    frame.show();
    EVENTUALLY_COMPARE(screen.colourAt(device(drawn, frame).center()), QColor(Qt::red));
    QPixmap other(frame.background()->size());
    other.setDevicePixelRatio(frame.devicePixelRatioF());
    other.fill(Qt::blue);
    *frame.background() = other;
    frame.update();

    // when
    coverAndUncover(device(QRect(150, 50, 100, 150), frame));

    // then
    EVENTUALLY_COMPARE(screen.colourAt(device(QRect(150, 50, 100, 150), frame).center()),
                       QColor(Qt::blue));
}

void BackgroundExposureTest::aFrameThatIsShownAgainShowsWhatHasChanged_data()
{
    QTest::addColumn<bool>("knowsWhatItDraws");

    QTest::newRow("one that knows what it draws") << true;
    QTest::newRow("one that draws anywhere") << false;
}

void BackgroundExposureTest::aFrameThatIsShownAgainShowsWhatHasChanged()
{
    // given
    QFETCH(bool, knowsWhatItDraws);
    DrawingFrame frame;
    frame.knowsWhatItDraws = knowsWhatItDraws;
    frame.show();
    EVENTUALLY_COMPARE(screen.colourAt(device(drawn, frame).center()), QColor(Qt::red));
    frame.hide();
    EVENTUALLY(isShown());

    // when
    frame.colour = Qt::magenta;
    frame.markCanvas(Qt::blue);
    frame.show();

    // then
    expectDrawn(frame);
    expect(canvasPlace, Qt::blue, frame);
    EVENTUALLY(isShown());
}

void BackgroundExposureTest::aFrameOfTheLiveDesktopIsPaintedWhole()
{
    // given
    DrawingFrame frame(TransparentFrame::LiveEngine);

    for (int time = 0; time < 2; ++time) {
        // when
        frame.show();

        // then
        EVENTUALLY_COMPARE(frame.painted, allButTheChild(frame));
        frame.hide();
        frame.painted = {};
    }
}

void BackgroundExposureTest::whatIsDrawnElsewhereIsOpaque()
{
    // given: a picture that has only just been written, of what leaves open the byte that no colour
    // uses
    const ClientWindow window(x, ClientWindow::Kind::Unmanaged, {0, 0, 50, 50}, Qt::yellow);
    EVENTUALLY_COMPARE(screen.colourAt({0, 0}), QColor(Qt::yellow));
    DrawingFrame frame;
    FrameEngineSS engine(&frame, 0);
    engine.init();
    engine.secureBackground();
    QImage target(x.size(), QImage::Format_ARGB32_Premultiplied);
    target.setDevicePixelRatio(frame.devicePixelRatioF());
    target.fill(Qt::transparent);

    // when
    engine.drawBack(&target, {0, 0}, frame.rect());

    // then
    QCOMPARE(target.pixelColor(0, 0), QColor(Qt::yellow));
}

REGISTER_TEST(BackgroundExposureTest, QApplication)
#include "backgroundexposuretest.moc"
