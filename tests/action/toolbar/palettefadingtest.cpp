#include "tests/action/probes.h"
#include "tests/support/cursorstack.h"
#include "tests/support/input.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace TestSupport;

namespace {

constexpr int tenthMs = 30;

/// A control of one colour.
class Patch : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter(this).fillRect(rect(), QColor(200, 0, 0));
    }
};

/// A palette on a shown frame, the pointer on neither.
struct PlacedPalette {
    PlacedPalette()
    {
        palette.move(50, 60);
        palette.start();
        frame.show();
        putPointer(outside());
        palette.opacityAnimation->stop();
        palette.setWindowOpacity(1.0);
        frame.cursorUpdates = 0;
    }

    [[nodiscard]] QPoint outside() const { return frame.mapToGlobal(QPoint(5, 5)); }
    [[nodiscard]] QPoint inside() const { return palette.mapToGlobal(QPoint(100, 40)); }
    /// Stops the running fade at a time.
    void holdFadeAt(int ms)
    {
        palette.opacityAnimation->pause();
        palette.opacityAnimation->setCurrentTime(ms);
    }

    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette{&frame, QSize(200, 80)};
};

}

class PaletteFadingTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { takeOverrideCursors(); }

    void fadingOutEndsAtExactlyTheLeast();
    void fadingInEndsAtExactlyTheMost();
    void fadingGoesOnFromTheOpacityReached();
    void fadingIsSmooth();
    void theClassTellsTheOpacityThatItPaintsWith();
    void atRestThePixelsAreMixedExactly();
    void atTheLeastOpacityNoFadeBegins();
    void aHairAboveTheLeastOpacityAFadeBegins();
    void aFadeInThatHasOnlyBegunIsTurnedRound();
    void aFadeOutSetsTheFramesCursorFirst();
    void underThePointerNoFadeBegins_data();
    void underThePointerNoFadeBegins();
    void whileAListIsOpenNoFadeOutBegins();
    void aListThatWasNeverOpenedIsNotMade();
    void whenDisabledNeitherFadeBegins();
    void enteringBrightens_data();
    void enteringBrightens();
    void leavingDims();
    void movingOutsideDims();
    void movingInsideDoesNotDim();
    void aPaletteWithoutAFrameFades();
};

void PaletteFadingTest::fadingOutEndsAtExactlyTheLeast()
{
    // Given
    PlacedPalette placed;

    // When
    placed.palette.fadeOut();

    // Then
    QVERIFY(placed.palette.isFading());
    QTRY_VERIFY(!placed.palette.isFading());
    QVERIFY(placed.palette.windowOpacity() == 0.3);
}

void PaletteFadingTest::fadingInEndsAtExactlyTheMost()
{
    // Given
    PlacedPalette placed;
    placed.palette.setWindowOpacity(0.3);

    // When
    placed.palette.fadeIn();

    // Then
    QVERIFY(placed.palette.isFading());
    QTRY_VERIFY(!placed.palette.isFading());
    QVERIFY(placed.palette.windowOpacity() == 1.0);
}

void PaletteFadingTest::fadingGoesOnFromTheOpacityReached()
{
    // Given
    PlacedPalette placed;
    placed.palette.fadeOut();
    placed.holdFadeAt(150);
    const qreal reached = placed.palette.windowOpacity();

    // When
    placed.palette.fadeIn();

    // Then
    QCOMPARE(reached, 0.65);
    QCOMPARE(placed.palette.opacityAnimation->startValue().toDouble(), 0.65);
    QCOMPARE(placed.palette.opacityAnimation->endValue().toDouble(), 1.0);
    QVERIFY(placed.palette.opacityAnimation->currentTime() < 150);
}

void PaletteFadingTest::fadingIsSmooth()
{
    // Given
    PlacedPalette placed;
    placed.palette.fadeOut();

    for (int tenth = 1; tenth <= 9; ++tenth) {
        // When
        placed.holdFadeAt(tenth * tenthMs);

        // Then
        QCOMPARE(placed.palette.windowOpacity(), 1.0 - 0.07 * tenth);
    }
}

void PaletteFadingTest::theClassTellsTheOpacityThatItPaintsWith()
{
    // Given
    PlacedPalette placed;

    // When
    placed.palette.setWindowOpacity(0.5);

    // Then
    const VcAction::Toolbar::ActionToolbar& palette = placed.palette;
    QVERIFY(palette.windowOpacity() == 0.5);
}

void PaletteFadingTest::atRestThePixelsAreMixedExactly()
{
    // Given
    PlacedPalette placed;
    *placed.frame.background() = plainPicture(placed.frame, QColor(0, 100, 0));
    Patch patch(&placed.palette);
    patch.setGeometry(50, 10, 60, 50);
    patch.show();
    const QPoint onPatch(130, 95);
    const QPoint onFrame(20, 20);

    // When
    const QColor before = colourAt(painted(placed.frame), onPatch);
    placed.palette.fadeOut();
    QTRY_VERIFY(!placed.palette.isFading());
    const QImage faded = painted(placed.frame);
    placed.palette.fadeIn();
    QTRY_VERIFY(!placed.palette.isFading());
    const QColor after = colourAt(painted(placed.frame), onPatch);

    // Then
    QCOMPARE(before, QColor(200, 0, 0));
    QVERIFY(areClose(colourAt(faded, onPatch), QColor(60, 70, 0), 1));
    QCOMPARE(colourAt(faded, onFrame), QColor(0, 100, 0));
    QCOMPARE(after, QColor(200, 0, 0));
}

void PaletteFadingTest::atTheLeastOpacityNoFadeBegins()
{
    // Given
    PlacedPalette placed;
    placed.palette.fadeOut();
    QTRY_VERIFY(!placed.palette.isFading());
    placed.frame.cursorUpdates = 0;

    // When
    placed.palette.fadeOut();

    // Then
    QVERIFY(!placed.palette.isFading());
    QCOMPARE(placed.frame.cursorUpdates, 0);
}

void PaletteFadingTest::aHairAboveTheLeastOpacityAFadeBegins()
{
    // Given
    PlacedPalette placed;
    placed.palette.setWindowOpacity(0.300001);

    // When
    placed.palette.fadeOut();

    // Then
    QVERIFY(placed.palette.isFading());
}

void PaletteFadingTest::aFadeInThatHasOnlyBegunIsTurnedRound()
{
    // Given: the pointer has come and gone within one frame of the animation.
    PlacedPalette placed;
    placed.palette.fadeOut();
    QTRY_VERIFY(!placed.palette.isFading());
    placed.frame.cursorUpdates = 0;
    placed.palette.fadeIn();
    QVERIFY(placed.palette.windowOpacity() == 0.3);

    // When
    placed.palette.fadeOut();

    // Then
    QCOMPARE(placed.palette.opacityAnimation->endValue().toDouble(), 0.3);
    QCOMPARE(placed.frame.cursorUpdates, 1);
    QTRY_VERIFY(!placed.palette.isFading());
    QVERIFY(placed.palette.windowOpacity() == 0.3);
}

void PaletteFadingTest::aFadeOutSetsTheFramesCursorFirst()
{
    // Given
    PlacedPalette placed;

    // When
    placed.palette.fadeOut();
    placed.palette.fadeIn();

    // Then
    QCOMPARE(placed.frame.cursorUpdates, 1);
}

void PaletteFadingTest::underThePointerNoFadeBegins_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<bool>("fades");

    QTest::newRow("top left corner") << QPoint(0, 0) << false;
    QTest::newRow("bottom right corner") << QPoint(199, 79) << false;
    QTest::newRow("left of it") << QPoint(-1, 40) << true;
    QTest::newRow("right of it") << QPoint(200, 40) << true;
    QTest::newRow("above it") << QPoint(100, -1) << true;
    QTest::newRow("below it") << QPoint(100, 80) << true;
}

void PaletteFadingTest::underThePointerNoFadeBegins()
{
    // Given
    QFETCH(QPoint, pointer);
    QFETCH(bool, fades);
    PlacedPalette placed;
    putPointer(placed.palette.mapToGlobal(pointer));
    placed.palette.opacityAnimation->stop();
    placed.palette.setWindowOpacity(1.0);

    // When
    placed.palette.fadeOut();

    // Then
    QCOMPARE(placed.palette.isFading(), fades);
}

void PaletteFadingTest::whileAListIsOpenNoFadeOutBegins()
{
    // Given
    PlacedPalette placed;
    QWidget group(&placed.palette);
    QComboBox other(&placed.palette);
    QComboBox box(&group);
    box.addItems({"first", "second"});
    group.show();
    QVERIFY(!placed.palette.hasCBFocus());

    // When
    expectListWarnings();
    box.showPopup();
    QTRY_VERIFY(placed.palette.hasCBFocus());
    placed.palette.opacityAnimation->stop();
    placed.palette.setWindowOpacity(0.8);
    placed.frame.cursorUpdates = 0;
    placed.palette.fadeOut();

    // Then
    QVERIFY(!placed.palette.isFading());
    QCOMPARE(placed.frame.cursorUpdates, 0);

    // When
    leave(placed.palette);

    // Then
    QVERIFY(!placed.palette.isFading());

    // When
    placed.palette.fadeIn();

    // Then
    QVERIFY(placed.palette.isFading());

    // When
    box.hidePopup();
    QTRY_VERIFY(!placed.palette.hasCBFocus());
    placed.palette.fadeOut();

    // Then
    QCOMPARE(placed.palette.opacityAnimation->endValue().toDouble(), 0.3);
}

void PaletteFadingTest::aListThatWasNeverOpenedIsNotMade()
{
    // Given
    PlacedPalette placed;
    QComboBox box(&placed.palette);
    box.addItems({"first", "second"});
    const qsizetype children = box.findChildren<QObject*>().size();

    // When
    const bool focus = placed.palette.hasCBFocus();

    // Then
    QVERIFY(!focus);
    QCOMPARE(box.findChildren<QObject*>().size(), children);
}

void PaletteFadingTest::whenDisabledNeitherFadeBegins()
{
    // Given
    PlacedPalette placed;
    placed.palette.setWindowOpacity(0.6);
    placed.palette.setFadingEnabled(false);

    // When
    placed.palette.fadeIn();
    placed.palette.fadeOut();

    // Then
    QVERIFY(!placed.palette.isFading());
    QVERIFY(placed.palette.windowOpacity() == 0.6);
    QCOMPARE(placed.frame.cursorUpdates, 0);

    // When
    placed.palette.setFadingEnabled(true);
    placed.palette.fadeIn();

    // Then
    QVERIFY(placed.palette.isFading());
}

void PaletteFadingTest::enteringBrightens_data()
{
    QTest::addColumn<double>("opacity");

    QTest::newRow("faded") << 0.3;
    QTest::newRow("half way") << 0.65;
    QTest::newRow("bright already") << 1.0;
}

void PaletteFadingTest::enteringBrightens()
{
    // Given
    QFETCH(double, opacity);
    PlacedPalette placed;
    placed.palette.setWindowOpacity(opacity);

    // When
    enter(placed.palette, QPointF(100, 40));

    // Then
    QVERIFY(placed.palette.isFading());
    QCOMPARE(placed.palette.opacityAnimation->startValue().toDouble(), opacity);
    QCOMPARE(placed.palette.opacityAnimation->endValue().toDouble(), 1.0);
}

void PaletteFadingTest::leavingDims()
{
    PlacedPalette placed;

    leave(placed.palette);

    QVERIFY(placed.palette.isFading());
    QCOMPARE(placed.palette.opacityAnimation->endValue().toDouble(), 0.3);
}

void PaletteFadingTest::movingOutsideDims()
{
    // Given
    PlacedPalette placed;
    press(placed.palette, QPointF(100, 40));

    // When
    moveTo(placed.palette, QPointF(-10, 40));

    // Then
    QVERIFY(placed.palette.isFading());
    QCOMPARE(placed.palette.opacityAnimation->endValue().toDouble(), 0.3);
}

void PaletteFadingTest::movingInsideDoesNotDim()
{
    // Given
    PlacedPalette placed;
    putPointer(placed.inside());
    placed.palette.opacityAnimation->stop();

    // When
    moveTo(placed.palette, QPointF(100, 40));

    // Then
    QVERIFY(!placed.palette.isFading());
}

void PaletteFadingTest::aPaletteWithoutAFrameFades()
{
    // Given
    QWidget plain;
    ActionTest::PaletteProbe palette(&plain);
    putPointer(palette.mapToGlobal(QPoint(300, 300)));

    // When
    palette.fadeOut();

    // Then
    QVERIFY(palette.isFading());
}

REGISTER_TEST(PaletteFadingTest, QApplication)
#include "palettefadingtest.moc"
