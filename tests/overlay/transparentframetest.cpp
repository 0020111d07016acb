#include "overlay/transparentframe.h"

#include "tests/support/testprogram.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

using namespace Helpers::NQt;

namespace {

constexpr int screenshotEngine = 0;
constexpr int liveEngine = 1;
constexpr QSize smallFrame{40, 30};

/// A frame that counts what it is asked for.
class CountingFrame : public TransparentFrame {
public:
    explicit CountingFrame(int engineType = screenshotEngine)
        : TransparentFrame(nullptr, engineType, smallFrame.width(), smallFrame.height())
    {
    }

    void updateCursor() override { ++cursorUpdates; }
    void draw(QPaintDevice* device) override { devices.append(device); }

    int cursorUpdates = 0;
    QList<QPaintDevice*> devices;
    QList<QPoint> moves;

protected:
    void mouseMoveEvent(QMouseEvent* event) override { moves.append(event->pos()); }
};

/// A picture of the frame's size, in one colour.
QPixmap picture(const QWidget& frame, const QColor& colour)
{
    QPixmap filled((QSizeF(frame.size()) * frame.devicePixelRatioF()).toSize());
    filled.setDevicePixelRatio(frame.devicePixelRatioF());
    filled.fill(colour);
    return filled;
}

/// What the frame paints, over magenta.
QImage rendered(QWidget& frame)
{
    QImage image(frame.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    frame.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

QColor centre(const QImage& image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

bool usesLiveEngine(TransparentFrame& frame)
{
    return frame.testAttribute(Qt::WA_TranslucentBackground) && !frame.background();
}

bool usesScreenshotEngine(TransparentFrame& frame)
{
    return frame.testAttribute(Qt::WA_OpaquePaintEvent) && frame.background()
        && !frame.testAttribute(Qt::WA_TranslucentBackground);
}

}

/// The borderless frame, its size, its engine and what reaches it.
class TransparentFrameTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void itsMetaObjectTellsItsNameAlone();
    void theEngineTypeChoosesTheEngine_data();
    void theEngineTypeChoosesTheEngine();
    void itIsBornHiddenAndBorderless();
    void itDoesNotTakeTheActivation();
    void movesArriveWithoutAButton();
    void anExplicitSizeNeedsBothSides_data();
    void anExplicitSizeNeedsBothSides();
    void itLiesAtTheScreensCorner_data();
    void itLiesAtTheScreensCorner();
    void motionIsNotMerged();
    void aPressUpdatesTheCursorOnce_data();
    void aPressUpdatesTheCursorOnce();
    void aPaintDrawsTheContentOnce_data();
    void aPaintDrawsTheContentOnce();
    void theBackgroundIsPaintedFromTheStart_data();
    void theBackgroundIsPaintedFromTheStart();
    void theBackgroundCanBeLeftOut();
    void theCanvasIsTheBackground();
    void theLiveFrameHasNoCanvas();
    void whatIsPaintedOnTheCanvasIsShown();
    void aResizeTakesANewPicture();
    void aResizeOfALiveFrameChangesNothing();
    void theBaseFrameDrawsNothing();
};

void TransparentFrameTest::itsMetaObjectTellsItsNameAlone()
{
    // given
    const QMetaObject& meta = TransparentFrame::staticMetaObject;

    // then
    QCOMPARE(meta.className(), "Helpers::NQt::TransparentFrame");
    QCOMPARE(meta.superClass(), &QMainWindow::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
}

void TransparentFrameTest::theEngineTypeChoosesTheEngine_data()
{
    QTest::addColumn<int>("engineType");
    QTest::addColumn<bool>("live");

    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("2") << 2 << false;
    QTest::newRow("-1") << -1 << false;
    QTest::newRow("257") << 257 << false;
}

void TransparentFrameTest::theEngineTypeChoosesTheEngine()
{
    // given
    QFETCH(int, engineType);
    QFETCH(bool, live);

    // when
    TransparentFrame frame(nullptr, engineType, 40, 30);

    // then
    QCOMPARE(usesLiveEngine(frame), live);
    QCOMPARE(usesScreenshotEngine(frame), !live);
}

void TransparentFrameTest::itIsBornHiddenAndBorderless()
{
    // when
    const TransparentFrame frame(nullptr, screenshotEngine, 0, 0);

    // then
    QVERIFY(frame.isHidden());
    QCOMPARE(frame.windowFlags(), Qt::Window | Qt::FramelessWindowHint);
}

void TransparentFrameTest::itDoesNotTakeTheActivation()
{
    // when
    const TransparentFrame frame(nullptr, screenshotEngine, 0, 0);

    // then
    QVERIFY(frame.testAttribute(Qt::WA_ShowWithoutActivating));
}

void TransparentFrameTest::movesArriveWithoutAButton()
{
    // given
    CountingFrame frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    frame.moves.clear();

    // when
    QTest::mouseMove(&frame, QPoint(7, 9));

    // then
    QTRY_VERIFY(frame.moves.contains(QPoint(7, 9)));
}

void TransparentFrameTest::anExplicitSizeNeedsBothSides_data()
{
    const QSize screen = QGuiApplication::primaryScreen()->size();
    QTest::addColumn<QSize>("asked");
    QTest::addColumn<QSize>("size");

    QTest::newRow("neither") << QSize(0, 0) << screen;
    QTest::newRow("width alone") << QSize(300, 0) << screen;
    QTest::newRow("height alone") << QSize(0, 200) << screen;
    QTest::newRow("both") << QSize(300, 200) << QSize(300, 200);
    QTest::newRow("larger than the screen") << QSize(5000, 4000) << QSize(5000, 4000);
}

void TransparentFrameTest::anExplicitSizeNeedsBothSides()
{
    // given
    QFETCH(QSize, asked);

    // when
    const TransparentFrame frame(nullptr, screenshotEngine, asked.width(), asked.height());

    // then
    QTEST(frame.size(), "size");
}

void TransparentFrameTest::itLiesAtTheScreensCorner_data()
{
    QTest::addColumn<QSize>("asked");

    QTest::newRow("over the screen") << QSize(0, 0);
    QTest::newRow("smaller") << QSize(300, 200);
}

void TransparentFrameTest::itLiesAtTheScreensCorner()
{
    // given
    QFETCH(QSize, asked);
    const QScreen& screen = *QGuiApplication::primaryScreen();

    // when
    const TransparentFrame frame(nullptr, screenshotEngine, asked.width(), asked.height());

    // then
    QCOMPARE(frame.pos(), screen.geometry().topLeft());
    QCOMPARE(frame.screen(), &screen);
}

void TransparentFrameTest::motionIsNotMerged()
{
    // given: as platform plug-ins do when they start
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, true);

    // when
    const TransparentFrame frame(nullptr, screenshotEngine, 40, 30);

    // then
    QVERIFY(!QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents));
}

void TransparentFrameTest::aPressUpdatesTheCursorOnce_data()
{
    QTest::addColumn<Qt::MouseButton>("button");

    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void TransparentFrameTest::aPressUpdatesTheCursorOnce()
{
    // given
    QFETCH(Qt::MouseButton, button);
    CountingFrame frame;
    const QPointF point(5, 5);
    QMouseEvent press(QEvent::MouseButtonPress, point, point, button, button, Qt::NoModifier);

    // when
    QCoreApplication::sendEvent(&frame, &press);

    // then: the base class would have ignored the event
    QCOMPARE(frame.cursorUpdates, 1);
    QVERIFY(press.isAccepted());
    QVERIFY(frame.devices.isEmpty());
}

void TransparentFrameTest::aPaintDrawsTheContentOnce_data()
{
    QTest::addColumn<int>("engineType");

    QTest::newRow("screenshot engine") << screenshotEngine;
    QTest::newRow("live engine") << liveEngine;
}

void TransparentFrameTest::aPaintDrawsTheContentOnce()
{
    // given
    QFETCH(int, engineType);
    CountingFrame frame(engineType);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    frame.devices.clear();

    // when
    frame.repaint();

    // then
    QCOMPARE(frame.devices, QList<QPaintDevice*>({&frame}));
}

void TransparentFrameTest::theBackgroundIsPaintedFromTheStart_data()
{
    aPaintDrawsTheContentOnce_data();
}

void TransparentFrameTest::theBackgroundIsPaintedFromTheStart()
{
    // given
    QFETCH(int, engineType);

    // when
    TransparentFrame frame(nullptr, engineType, 40, 30);

    // then
    QVERIFY(frame.getDrawBack());
    frame.setDrawBack(false);
    QVERIFY(!frame.getDrawBack());
    frame.setDrawBack(true);
    QVERIFY(frame.getDrawBack());
}

void TransparentFrameTest::theBackgroundCanBeLeftOut()
{
    // given
    CountingFrame frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    *frame.background() = picture(frame, Qt::green);
    const QColor withBackground = centre(rendered(frame));

    // when
    frame.setDrawBack(false);

    // then
    QCOMPARE(withBackground, QColor(Qt::green));
    QCOMPARE(centre(rendered(frame)), QColor(Qt::magenta));
}

void TransparentFrameTest::theCanvasIsTheBackground()
{
    // given
    TransparentFrame frame(nullptr, screenshotEngine, 40, 30);

    // then
    QVERIFY(frame.background());
    QCOMPARE(frame.paintDevice(), static_cast<QPaintDevice*>(frame.background()));
}

void TransparentFrameTest::theLiveFrameHasNoCanvas()
{
    // given
    TransparentFrame frame(nullptr, liveEngine, 40, 30);

    // then
    QCOMPARE(frame.background(), nullptr);
    QCOMPARE(frame.paintDevice(), nullptr);
}

void TransparentFrameTest::whatIsPaintedOnTheCanvasIsShown()
{
    // given
    CountingFrame frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    *frame.background() = picture(frame, Qt::green);

    // when
    QPainter(frame.paintDevice()).fillRect(frame.rect(), Qt::blue);

    // then
    QCOMPARE(centre(rendered(frame)), QColor(Qt::blue));
}

void TransparentFrameTest::aResizeTakesANewPicture()
{
    // given
    CountingFrame frame;
    const QPixmap* background = frame.background();
    frame.grab();
    *frame.background() = picture(frame, Qt::green);

    // when
    frame.resize(60, 50);
    frame.grab();

    // then
    QCOMPARE(frame.background(), background);
    QCOMPARE(background->size(), (QSizeF(60, 50) * frame.devicePixelRatioF()).toSize());
}

void TransparentFrameTest::aResizeOfALiveFrameChangesNothing()
{
    // given
    CountingFrame frame(liveEngine);

    // when
    frame.resize(60, 50);
    frame.grab();

    // then
    QVERIFY(usesLiveEngine(frame));
    QVERIFY(!frame.testAttribute(Qt::WA_OpaquePaintEvent));
}

void TransparentFrameTest::theBaseFrameDrawsNothing()
{
    // given
    TransparentFrame frame(nullptr, screenshotEngine, 40, 30);
    QImage target(40, 30, QImage::Format_RGB32);
    target.fill(Qt::magenta);
    const QImage before = target;

    // when
    frame.draw(&target);
    frame.draw(nullptr);
    frame.updateCursor();

    // then
    QCOMPARE(target, before);
    QVERIFY(!frame.testAttribute(Qt::WA_SetCursor));
    QVERIFY(!QGuiApplication::overrideCursor());
}

REGISTER_TEST(TransparentFrameTest, QApplication)
#include "transparentframetest.moc"
