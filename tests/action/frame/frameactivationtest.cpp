#include "tests/action/probes.h"
#include "tests/support/eventloop.h"
#include "tests/support/paintrecorder.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWindow>

using ActionTest::FrameProbe;
using ActionTest::PaletteProbe;

/// Who has the keyboard, on a real window system without a window manager.
class FrameActivationTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void raisedItTakesTheKeyboard();
    void notRaisedItLeavesTheKeyboardWhereItIs();
    void itsPictureIsTakenBeforeItIsShown();
    void theKeyboardsComingAndGoingRepaintsNothing();
};

void FrameActivationTest::raisedItTakesTheKeyboard()
{
    // Given
    QLineEdit other;
    other.setGeometry(900, 600, 200, 50);
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    FrameProbe frame;
    PaletteProbe palette(&frame);
    frame.setToolbar(&palette);

    // When
    frame.start(true);

    // Then
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    QCOMPARE(QApplication::focusWidget(), &frame);
}

void FrameActivationTest::notRaisedItLeavesTheKeyboardWhereItIs()
{
    // Given
    QLineEdit other;
    other.setGeometry(900, 600, 200, 50);
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    FrameProbe frame;
    PaletteProbe palette(&frame);
    frame.setToolbar(&palette);

    // When
    frame.start(false);

    // Then
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QVERIFY(palette.isVisible());
    QCOMPARE(TestSupport::statusAfter([] {}), TestSupport::stillRunning);
    QCOMPARE(QApplication::activeWindow(), &other);
}

void FrameActivationTest::itsPictureIsTakenBeforeItIsShown()
{
    // Given
    QWidget below;
    below.setPalette(QColor(10, 200, 30));
    below.setWindowFlags(Qt::X11BypassWindowManagerHint);
    below.setGeometry(0, 0, 400, 400);
    below.show();
    QVERIFY(QTest::qWaitForWindowExposed(&below));
    QTRY_COMPARE(
        QGuiApplication::primaryScreen()->grabWindow(0, 50, 50, 1, 1).toImage().pixelColor(0, 0),
        QColor(10, 200, 30));
    FrameProbe frame;

    // When
    frame.start(true);
    QVERIFY(QTest::qWaitForWindowExposed(&frame));

    // Then
    QCOMPARE(frame.background()->toImage().pixelColor(50, 50), QColor(10, 200, 30));
}

void FrameActivationTest::theKeyboardsComingAndGoingRepaintsNothing()
{
    // Given
    const QPalette usual = QApplication::palette();
    QPalette greyWhenInactive = usual;
    greyWhenInactive.setColor(QPalette::Inactive, QPalette::Highlight, Qt::gray);
    greyWhenInactive.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    QApplication::setPalette(greyWhenInactive);
    QLineEdit other;
    other.setGeometry(900, 600, 200, 50);
    FrameProbe frame;
    frame.start(true);
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    QCoreApplication::processEvents();
    const TestSupport::PaintRecorder recorder(frame);

    // When
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    other.hide();
    frame.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    QTRY_COMPARE(QApplication::focusWidget(), &frame);
    QCoreApplication::processEvents();

    // Then
    QVERIFY(recorder.region.subtracted(other.geometry()).isEmpty());
    QApplication::setPalette(usual);
}

REGISTER_TEST(FrameActivationTest, QApplication)
#include "frameactivationtest.moc"
