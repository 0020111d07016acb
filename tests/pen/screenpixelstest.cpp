#include "pen/penframe.h"
#include "pen/pentoolbar.h"
#include "tests/support/cursorstack.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPainter>
#include <QPropertyAnimation>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QtMath>

namespace {

/// The pen's palette with a fade that can be held.
class PaletteProbe : public VcAction::Toolbar::PenToolbar {
public:
    using PenToolbar::PenToolbar;

    void holdFade()
    {
        if (opacityAnimation->state() == QAbstractAnimation::Running)
            opacityAnimation->pause();
    }
    void goOnFading()
    {
        if (opacityAnimation->state() == QAbstractAnimation::Paused)
            opacityAnimation->resume();
    }
    [[nodiscard]] bool isFading() const
    {
        return opacityAnimation->state() == QAbstractAnimation::Running;
    }
};

/// A picture on which every shift of a pixel shows.
QPixmap noise(const QWidget& widget, QRandomGenerator& random)
{
    QImage image(QSize(qCeil(widget.width() * widget.devicePixelRatioF()),
                       qCeil(widget.height() * widget.devicePixelRatioF())),
                 QImage::Format_RGB32);
    random.fillRange(reinterpret_cast<quint32*>(image.bits()), image.sizeInBytes() / 4);
    image.setDevicePixelRatio(widget.devicePixelRatioF());
    return QPixmap::fromImage(image);
}

/// A user with a pen frame and its palette on a real screen.
class Scribbler {
public:
    explicit Scribbler(quint32 seed)
        : random(seed)
        , frame(nullptr, 20, Qt::red, 0, false)
        , palette(new PaletteProbe(&frame))
    {
        frame.setToolbar(palette);
        *frame.background() = noise(frame, random);
        frame.start(true);
    }

    /// Does something with the pen.
    void scribble()
    {
        switch (random.bounded(10)) {
        case 0:
            toggle(Qt::LeftButton, leftIsDown);
            break;
        case 1:
            toggle(Qt::RightButton, rightIsDown);
            break;
        case 2:
            change();
            break;
        default:
            at = random.bounded(8) == 0 ? anywhere() : nearby();
            TestSupport::moveTo(frame, at);
            break;
        }
    }
    /// Lifts the pen.
    void finish() { TestSupport::release(frame, at); }
    void move()
    {
        at = nearby();
        TestSupport::moveTo(frame, at);
    }

    [[nodiscard]] QImage onScreen()
    {
        return frame.screen()
            ->grabWindow(frame.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    [[nodiscard]] QImage paintedAnew()
    {
        return frame.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    QRandomGenerator random;
    VcAction::Frame::PenFrame frame;
    PaletteProbe* palette;

private:
    void toggle(Qt::MouseButton button, bool& isDown)
    {
        isDown = !isDown;
        if (isDown)
            TestSupport::press(frame, at, button);
        else
            TestSupport::release(frame, at, button);
    }
    void change()
    {
        switch (random.bounded(5)) {
        case 0:
            frame.setPen(QColor::fromRgb(random.generate()));
            break;
        case 1:
            frame.setPenSize(random.bounded(60));
            break;
        case 2:
            frame.setTransparency(random.bounded(2) == 0);
            move();
            break;
        case 3:
            palette->fadeIn();
            break;
        default:
            palette->fadeOut();
            break;
        }
    }
    QPointF anywhere()
    {
        return {random.bounded(frame.width() + 40.0) - 20,
                random.bounded(frame.height() + 40.0) - 20};
    }
    QPointF nearby() { return at + QPointF(random.bounded(30.0) - 15, random.bounded(30.0) - 15); }

    QPointF at{100, 100};
    bool leftIsDown = false;
    bool rightIsDown = false;
};

/// A tool that only draws, and knows nothing of regions.
class StampFrame : public VcAction::Frame::PenFrame {
public:
    StampFrame()
        : PenFrame(nullptr, 20, Qt::red, 0, false)
    {
    }

    void draw(QPaintDevice* device) override
    {
        PenFrame::draw(device);
        QPainter(device).fillRect(stamp, Qt::blue);
    }

    QRect stamp{300, 200, 80, 60};
};

/// A tool that draws more than it tells.
class CarelessFrame : public StampFrame {
public:
    CarelessFrame() { paintOnly(&CarelessFrame::corner); }

    [[nodiscard]] QRegion corner() const { return QRect(0, 0, 10, 10); }
    void repaintWhole() { grab(); }
};

}

/// What is on the screen after many small repaints is what painting all anew would give.
class ScreenPixelsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void smallRepaintsEqualAFullOne_data();
    void smallRepaintsEqualAFullOne();
    void aNewStyleLeavesNothingBehind_data();
    void aNewStyleLeavesNothingBehind();
    void aDerivedFrameNeedsNoMoreThanToDraw();
    void whoDrawsOutsideOfWhatItTellsIsNamed();

private:
    static void compare(Scribbler& user)
    {
        user.palette->holdFade();
        QCoreApplication::processEvents();
        const QImage shown = user.onScreen();
        const QImage full = user.paintedAnew().copy(shown.rect());
        QCOMPARE(TestSupport::differingBox(shown, full), QRect());
        user.palette->goOnFading();
    }
};

void ScreenPixelsTest::smallRepaintsEqualAFullOne_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<quint32>("seed");

    QTest::newRow("freehand") << 0 << quint32(1);
    QTest::newRow("freehand, another way") << 0 << quint32(2);
    QTest::newRow("ellipses") << 1 << quint32(3);
    QTest::newRow("ellipses, another way") << 1 << quint32(105);
    QTest::newRow("rectangles") << 2 << quint32(4);
    QTest::newRow("round rectangles") << 3 << quint32(5);
    QTest::newRow("an unknown style") << 7 << quint32(6);
}

void ScreenPixelsTest::smallRepaintsEqualAFullOne()
{
    // Given
    QFETCH(int, style);
    QFETCH(quint32, seed);
    TestSupport::Images images;
    Scribbler user(seed);
    QVERIFY(QTest::qWaitForWindowExposed(&user.frame));
    QTRY_VERIFY(!user.palette->isFading());
    user.frame.setStyle(style);
    user.frame.repaint();

    for (int comparison = 0; comparison < 12; ++comparison) {
        // When
        for (int step = 0; step < 25; ++step) {
            user.scribble();
            if (user.random.bounded(6) == 0)
                QCoreApplication::processEvents();
        }

        // Then
        compare(user);
        if (QTest::currentTestFailed())
            return;
    }
    user.finish();
    compare(user);
}

void ScreenPixelsTest::aNewStyleLeavesNothingBehind_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("drawing");

    QTest::newRow("from pen to shapes") << 0 << 2 << false;
    QTest::newRow("from shapes to pen") << 1 << 0 << false;
    QTest::newRow("from pen to shapes in mid-stroke") << 0 << 1 << true;
    QTest::newRow("from shapes to pen in mid-shape") << 3 << 0 << true;
}

void ScreenPixelsTest::aNewStyleLeavesNothingBehind()
{
    // Given
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(bool, drawing);
    TestSupport::Images images;
    Scribbler user(7);
    QVERIFY(QTest::qWaitForWindowExposed(&user.frame));
    user.frame.setStyle(before);
    user.frame.repaint();
    user.move();
    if (drawing) {
        TestSupport::press(user.frame, QPointF(200, 200));
        TestSupport::moveTo(user.frame, QPointF(260, 240));
    }
    QTRY_VERIFY(!user.palette->isFading());

    // When
    user.frame.setStyle(after);
    user.move();
    user.move();

    // Then
    compare(user);
    user.finish();
    user.move();
    compare(user);
}

void ScreenPixelsTest::aDerivedFrameNeedsNoMoreThanToDraw()
{
    // Given
    StampFrame frame;
    const auto shown = [&frame](QPoint point) {
        const QImage picture = frame.screen()->grabWindow(frame.winId()).toImage();
        return picture.pixelColor(point * frame.devicePixelRatio());
    };

    // When
    frame.start(true);

    // Then
    QTRY_COMPARE(shown(frame.stamp.center()), QColor(Qt::blue));
    QCOMPARE(shown(frame.stamp.bottomRight()), QColor(Qt::blue));

    // When
    frame.stamp.translate(200, 100);
    TestSupport::moveTo(frame, QPointF(20, 20));

    // Then
    QTRY_COMPARE(shown(frame.stamp.bottomRight()), QColor(Qt::blue));
    QVERIFY(shown(frame.stamp.topLeft() - QPoint(100, 50)) != QColor(Qt::blue));
}

void ScreenPixelsTest::whoDrawsOutsideOfWhatItTellsIsNamed()
{
    if (!KORVEL_DEVELOPER)
        QSKIP("looked at in the developer preset only");

    // Given
    CarelessFrame frame;
    const QRegularExpression name("CarelessFrame draws outside");

    // Then
    QTest::ignoreMessage(QtWarningMsg, name);

    // When
    frame.repaintWhole();
}

REGISTER_TEST(ScreenPixelsTest, QApplication)
#include "screenpixelstest.moc"
