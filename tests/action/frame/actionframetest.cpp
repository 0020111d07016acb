#include "action/frame/quitguard.h"
#include "tests/action/probes.h"
#include "tests/support/cursorstack.h"
#include "tests/support/eventloop.h"
#include "tests/support/input.h"
#include "tests/support/metamethods.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QComboBox>
#include <QPaintEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWindow>

using namespace TestSupport;
using ActionTest::FrameProbe;
using ActionTest::PaletteProbe;

namespace {

const QPointF onFrame(5, 5);

/// Reaches the application's count of receivers.
struct Receivers : QObject {
    static int ofAboutToQuit()
    {
        return (QCoreApplication::instance()->*&Receivers::receivers)(SIGNAL(aboutToQuit()));
    }
};

/// Notes the events of a frame and its palette in their order.
class Recorder : public QObject {
public:
    Recorder(QWidget& watchedFrame, QWidget* watchedPalette)
        : frame(watchedFrame)
    {
        frame.installEventFilter(this);
        if (watchedPalette)
            watchedPalette->installEventFilter(this);
    }

    QStringList events;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QString who = watched == &frame ? "frame " : "palette ";
        switch (event->type()) {
        case QEvent::Paint:
            note(who + "paint");
            break;
        case QEvent::Hide:
            note(who + "hide");
            break;
        case QEvent::Show:
            note(who + "show");
            break;
        case QEvent::ZOrderChange:
            note(who + "raise");
            break;
        case QEvent::Close:
            note(who + "close");
            break;
        default:
            break;
        }
        return false;
    }

private:
    void note(const QString& what)
    {
        // A repaint may paint a widget more than once.
        if (events.isEmpty() || events.last() != what)
            events.append(what);
    }

    QWidget& frame;
};

/// A frame with its palette, shown, the pointer on the frame's corner.
struct StartedFrame {
    StartedFrame()
    {
        frame.setToolbar(&palette);
        expectRaiseWarning();
        frame.start(true);
        putPointer(frame.mapToGlobal(onFrame.toPoint()));
        palette.opacityAnimation->stop();
        palette.setWindowOpacity(1.0);
        frame.cursorUpdates = 0;
    }

    FrameProbe frame;
    PaletteProbe palette{&frame, QSize(200, 80)};
};

}

class ActionFrameTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { takeOverrideCursors(); }

    void itHasFourSlotsAndNothingElse();
    void itLiesOverTheScreenAndOnTop();
    void anExplicitSizeReachesTheFrame();
    void theEndOfTheProgramIsConnectedToItsQuitting();
    void aPaletteIsPlacedInTheCorner_data();
    void aPaletteIsPlacedInTheCorner();
    void takingAPaletteDoesNotShowIt();
    void aPaletteCanBeTakenAway();
    void startingShowsFrameAndPalette_data();
    void startingShowsFrameAndPalette();
    void startingAgainShowsAHiddenPalette();
    void startingWithoutAnArgumentRaises();
    void startingNeedsNoPalette();
    void startedTheFrameHasTheFocus();
    void aPressFadesThePaletteAndSetsTheCursor();
    void aPressNeedsNoPalette();
    void aPressRepaintsAtOnce();
    void aPressTakesTheFocusBack();
    void enteringFadesThePaletteAndSetsTheCursor();
    void enteringWithoutAPaletteDoesNothing();
    void enteringWhileAListIsOpenDoesNothing();
    void resizingHidesAndShowsThePaletteAndTakesNoPicture();
    void resizingNeedsNoPalette();
    void theMouseGoesThroughEverySecondTime();
    void escapeEndsTheProgram();
    void otherKeysDoNothing_data();
    void otherKeysDoNothing();
    void closingTheActionClosesThePaletteAndEndsTheProgram();
    void closingTheActionNeedsNoPalette();
    void closedByTheWindowManagerTheProgramEnds();
};

void ActionFrameTest::itHasFourSlotsAndNothingElse()
{
    const QMetaObject& type = VcAction::Frame::ActionFrame::staticMetaObject;

    QCOMPARE(QString(type.className()), QString("VcAction::Frame::ActionFrame"));
    QCOMPARE(type.superClass(), &Helpers::NQt::TransparentFrame::staticMetaObject);
    QCOMPARE(ownMethods(type),
             QStringList({"public slot start(bool withraise)", "public slot start()",
                          "public slot switchMouseTransMode()", "public slot closeAction()"}));
    QVERIFY(hasMethodsOnly(type));
}

void ActionFrameTest::itLiesOverTheScreenAndOnTop()
{
    const FrameProbe frame(QSize(0, 0));

    QCOMPARE(frame.geometry(), QGuiApplication::primaryScreen()->geometry());
    QCOMPARE(frame.windowFlags() & ~Qt::WindowType_Mask,
             Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    QVERIFY(frame.testAttribute(Qt::WA_QuitOnClose));
    QVERIFY(frame.isHidden());
    QVERIFY(!frame.mouseTransparent);
}

void ActionFrameTest::anExplicitSizeReachesTheFrame()
{
    const FrameProbe frame(QSize(200, 150));

    QCOMPARE(frame.size(), QSize(200, 150));
}

void ActionFrameTest::theEndOfTheProgramIsConnectedToItsQuitting()
{
    // Given
    VcAction::Frame::QuitGuard::guard(*qApp);
    const int before = Receivers::ofAboutToQuit();

    // When
    const FrameProbe frame;

    // Then
    QCOMPARE(Receivers::ofAboutToQuit(), before + 1);
    QVERIFY(QObject::disconnect(qApp, SIGNAL(aboutToQuit()), qApp, SLOT(quit())));
}

void ActionFrameTest::aPaletteIsPlacedInTheCorner_data()
{
    QTest::addColumn<QSize>("frameSize");
    QTest::addColumn<QPoint>("place");

    QTest::newRow("room enough") << QSize(380, 300) << QPoint(100, 140);
    QTest::newRow("just room enough") << QSize(280, 160) << QPoint(0, 0);
    QTest::newRow("too narrow") << QSize(250, 300) << QPoint(-30, 140);
    QTest::newRow("too low") << QSize(380, 90) << QPoint(100, -70);
}

void ActionFrameTest::aPaletteIsPlacedInTheCorner()
{
    // Given
    QFETCH(QSize, frameSize);
    FrameProbe frame(frameSize);
    PaletteProbe palette(&frame, QSize(200, 80));

    // When
    frame.setToolbar(&palette);

    // Then
    QTEST(palette.pos(), "place");
}

void ActionFrameTest::takingAPaletteDoesNotShowIt()
{
    // Given
    FrameProbe frame;
    frame.show();
    PaletteProbe palette(&frame);

    // When
    frame.setToolbar(&palette);

    // Then
    QVERIFY(!palette.isVisible());
}

void ActionFrameTest::aPaletteCanBeTakenAway()
{
    // Given
    StartedFrame started;

    // When
    started.frame.setToolbar(nullptr);
    press(started.frame, onFrame);

    // Then
    QVERIFY(!started.palette.isFading());
    QCOMPARE(started.frame.cursorUpdates, 1);
}

void ActionFrameTest::startingShowsFrameAndPalette_data()
{
    QTest::addColumn<bool>("withRaise");

    QTest::newRow("raised") << true;
    QTest::newRow("as it lies") << false;
}

void ActionFrameTest::startingShowsFrameAndPalette()
{
    // Given
    QFETCH(bool, withRaise);
    FrameProbe frame;
    PaletteProbe palette(&frame);
    frame.setToolbar(&palette);
    palette.hide();
    Recorder recorder(frame, &palette);
    if (withRaise)
        expectRaiseWarning();

    // When
    frame.start(withRaise);

    // Then
    QVERIFY(frame.isVisible());
    QVERIFY(palette.isVisible());
    QCOMPARE(recorder.events.contains("frame raise"), withRaise);
}

void ActionFrameTest::startingAgainShowsAHiddenPalette()
{
    // Given
    StartedFrame started;
    started.palette.hide();

    // When
    started.frame.start(false);

    // Then
    QVERIFY(started.palette.isVisible());
}

void ActionFrameTest::startingWithoutAnArgumentRaises()
{
    // Given
    FrameProbe frame;
    Recorder recorder(frame, nullptr);
    expectRaiseWarning();

    // When
    QMetaObject::invokeMethod(&frame, "start");

    // Then
    QVERIFY(frame.isVisible());
    QVERIFY(recorder.events.contains("frame raise"));
}

void ActionFrameTest::startingNeedsNoPalette()
{
    // Given
    FrameProbe frame;

    // When
    frame.start(false);

    // Then
    QVERIFY(frame.isVisible());
}

void ActionFrameTest::startedTheFrameHasTheFocus()
{
    // Given
    FrameProbe frame;
    PaletteProbe palette(&frame);
    QComboBox box(&palette);
    frame.setToolbar(&palette);

    // When
    expectRaiseWarning();
    frame.start(true);

    // Then
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    QCOMPARE(QApplication::focusWidget(), &frame);
}

void ActionFrameTest::aPressFadesThePaletteAndSetsTheCursor()
{
    // Given
    StartedFrame started;

    // When
    press(started.frame, onFrame);

    // Then
    QVERIFY(started.palette.isFading());
    QCOMPARE(started.palette.opacityAnimation->endValue().toDouble(), 0.3);
    // Once by the palette and once by the frame.
    QCOMPARE(started.frame.cursorUpdates, 2);
}

void ActionFrameTest::aPressNeedsNoPalette()
{
    // Given
    FrameProbe frame;

    // When
    press(frame, onFrame);

    // Then
    QCOMPARE(frame.cursorUpdates, 1);
}

void ActionFrameTest::aPressRepaintsAtOnce()
{
    // Given
    FrameProbe frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    Recorder recorder(frame, nullptr);

    // When
    press(frame, onFrame);

    // Then
    QCOMPARE(recorder.events, QStringList("frame paint"));
}

void ActionFrameTest::aPressTakesTheFocusBack()
{
    const FrameProbe frame;

    QCOMPARE(frame.focusPolicy(), Qt::ClickFocus);
}

void ActionFrameTest::enteringFadesThePaletteAndSetsTheCursor()
{
    // Given
    StartedFrame started;
    Recorder recorder(started.frame, nullptr);

    // When
    enter(started.frame, onFrame);

    // Then
    QVERIFY(started.palette.isFading());
    QCOMPARE(started.palette.opacityAnimation->endValue().toDouble(), 0.3);
    QCOMPARE(started.frame.cursorUpdates, 2);
    QCOMPARE(recorder.events, QStringList("frame paint"));
}

void ActionFrameTest::enteringWithoutAPaletteDoesNothing()
{
    // Given
    FrameProbe frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    Recorder recorder(frame, nullptr);
    frame.cursorUpdates = 0;

    // When
    enter(frame, onFrame);

    // Then
    QCOMPARE(frame.cursorUpdates, 0);
    QCOMPARE(recorder.events, QStringList());
}

void ActionFrameTest::enteringWhileAListIsOpenDoesNothing()
{
    // Given
    StartedFrame started;
    QComboBox box(&started.palette);
    box.addItems({"first", "second"});
    box.show();
    expectListWarnings();
    box.showPopup();
    QTRY_VERIFY(started.palette.hasCBFocus());
    started.palette.opacityAnimation->stop();
    started.palette.setWindowOpacity(0.8);
    started.frame.cursorUpdates = 0;
    Recorder recorder(started.frame, nullptr);

    // When
    enter(started.frame, onFrame);

    // Then
    QVERIFY(!started.palette.isFading());
    QVERIFY(started.palette.windowOpacity() == 0.8);
    QCOMPARE(started.frame.cursorUpdates, 0);
    QCOMPARE(recorder.events, QStringList());
    box.hidePopup();
}

void ActionFrameTest::resizingHidesAndShowsThePaletteAndTakesNoPicture()
{
    // Given
    StartedFrame started;
    QVERIFY(QTest::qWaitForWindowExposed(&started.frame));
    *started.frame.background() = plainPicture(started.frame, Qt::green);
    const qint64 picture = started.frame.background()->cacheKey();
    const QPoint place = started.palette.pos();
    Recorder recorder(started.frame, &started.palette);

    // When
    QResizeEvent event(started.frame.size(), QSize(10, 10));
    QApplication::sendEvent(&started.frame, &event);

    // Then
    QCOMPARE(recorder.events.count("palette hide"), 1);
    QCOMPARE(recorder.events.count("palette show"), 1);
    const qsizetype hidden = recorder.events.indexOf("palette hide");
    const qsizetype shown = recorder.events.indexOf("palette show");
    const qsizetype firstPaint = recorder.events.indexOf("frame paint");
    QVERIFY(hidden < firstPaint);
    QVERIFY(firstPaint < shown);
    QVERIFY(recorder.events.lastIndexOf("frame paint") > shown);
    QVERIFY(recorder.events.lastIndexOf("palette paint") > shown);
    QVERIFY(started.palette.isVisible());
    QCOMPARE(started.palette.pos(), place);
    QCOMPARE(started.frame.background()->cacheKey(), picture);
}

void ActionFrameTest::resizingNeedsNoPalette()
{
    // Given
    FrameProbe frame;
    frame.show();
    *frame.background() = plainPicture(frame, Qt::green);
    const qint64 picture = frame.background()->cacheKey();

    // When
    QResizeEvent event(QSize(20, 20), frame.size());
    QApplication::sendEvent(&frame, &event);

    // Then
    QCOMPARE(frame.background()->cacheKey(), picture);
}

void ActionFrameTest::theMouseGoesThroughEverySecondTime()
{
    // Given
    FrameProbe frame;

    // When
    frame.switchMouseTransMode();

    // Then
    QVERIFY(frame.mouseTransparent);

    // When
    frame.switchMouseTransMode();

    // Then
    QVERIFY(!frame.mouseTransparent);
}

void ActionFrameTest::escapeEndsTheProgram()
{
    // Given
    StartedFrame started;

    // When
    const int status = statusAfter([&started] { pressKey(started.frame, Qt::Key_Escape); });

    // Then
    QCOMPARE(status, 0);
}

void ActionFrameTest::otherKeysDoNothing_data()
{
    QTest::addColumn<Qt::Key>("key");

    QTest::newRow("letter") << Qt::Key_Q;
    QTest::newRow("space bar") << Qt::Key_Space;
    QTest::newRow("function key") << Qt::Key_F4;
}

void ActionFrameTest::otherKeysDoNothing()
{
    // Given
    QFETCH(Qt::Key, key);
    StartedFrame started;
    bool accepted = true;

    // When
    const int status = statusAfter([&] { accepted = pressKey(started.frame, key); });

    // Then
    QCOMPARE(status, stillRunning);
    QVERIFY(!accepted);
}

void ActionFrameTest::closingTheActionClosesThePaletteAndEndsTheProgram()
{
    // Given
    StartedFrame started;
    Recorder recorder(started.frame, &started.palette);
    bool paletteClosed = false;

    // When
    const int status = statusAfter([&] {
        QMetaObject::invokeMethod(&started.frame, "closeAction");
        paletteClosed = recorder.events.contains("palette close");
    });

    // Then
    QCOMPARE(status, 0);
    QVERIFY(paletteClosed);
    QVERIFY(started.palette.isHidden());
}

void ActionFrameTest::closingTheActionNeedsNoPalette()
{
    // Given
    FrameProbe frame;
    frame.start(false);

    // When
    const int status = statusAfter([&frame] { frame.closeAction(); });

    // Then
    QCOMPARE(status, 0);
}

void ActionFrameTest::closedByTheWindowManagerTheProgramEnds()
{
    // Given
    StartedFrame started;

    // When
    const int status = statusAfter([&started] { started.frame.windowHandle()->close(); });

    // Then
    QCOMPARE(status, 0);
}

REGISTER_TEST(ActionFrameTest, QApplication)
#include "actionframetest.moc"
