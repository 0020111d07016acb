#include "action/toolbar/shutterhandle.h"
#include "tests/action/probes.h"
#include "tests/support/cursorstack.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

namespace {

/// A palette with a shutter, as a tool would derive it.
class ShutterPalette : public ActionTest::PaletteProbe {
public:
    explicit ShutterPalette(QWidget* parent)
        : PaletteProbe(parent, QSize(200, 80))
    {
        shutterHandle = new QWidget(this);
        shutterHandle->hide();
        start();
    }

    [[nodiscard]] bool isMoving() const
    {
        return sizeAnimation->state() == QAbstractAnimation::Running;
    }
};

}

class PaletteShutterTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void itsHandleShowsWhileItIsEnabled();
    void enablingItWithoutAHandleIsHarmless();
    void disabledItDoesNothing();
    void closingLeavesTheHandleStripAndLetsTheMouseThrough();
    void openingRestoresTheWidthAndCatchesTheMouse();
    void turnedRoundOnTheWayItOpensAgain();
    void theHeightStays();
    void itsWidthCannotBeSet();
    void aPaletteWithoutAFrameClosesToo();
    void aClosedPaletteShowsNoneOfItsTabStrip();
    void aClosedPaletteWithTabsIsNoMoreThanItsHandle();
    void theHandleButtonClosesAndOpensIt();
    void aPressOnTheHandleButtonDragsNothing();
};

void PaletteShutterTest::itsHandleShowsWhileItIsEnabled()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);

    // When
    palette.enableShutter();

    // Then
    QVERIFY(palette.shutterEnabled);
    QVERIFY(!palette.shutterHandle->isHidden());

    // When
    palette.disableShutter();

    // Then
    QVERIFY(!palette.shutterEnabled);
    QVERIFY(palette.shutterHandle->isHidden());
}

void PaletteShutterTest::enablingItWithoutAHandleIsHarmless()
{
    // Given
    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette(&frame);

    // When
    palette.enableShutter();

    // Then
    QVERIFY(palette.shutterEnabled);

    // When
    palette.disableShutter();

    // Then
    QVERIFY(!palette.shutterEnabled);
}

void PaletteShutterTest::disabledItDoesNothing()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.enableShutter();
    palette.disableShutter();

    // When
    palette.shutterOpenClose();

    // Then
    QVERIFY(!palette.isMoving());
    QVERIFY(palette.shutterOpen);
    QVERIFY(!frame.mouseTransparent);
    QCOMPARE(palette.width(), 200);
}

void PaletteShutterTest::closingLeavesTheHandleStripAndLetsTheMouseThrough()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.enableShutter();

    // When
    palette.shutterOpenClose();

    // Then
    QVERIFY(palette.isMoving());
    QVERIFY(!palette.shutterOpen);
    QVERIFY(frame.mouseTransparent);
    QTRY_VERIFY(!palette.isMoving());
    QCOMPARE(palette.size(), QSize(40, 80));
}

void PaletteShutterTest::openingRestoresTheWidthAndCatchesTheMouse()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.enableShutter();
    palette.shutterOpenClose();
    QTRY_VERIFY(!palette.isMoving());

    // When
    palette.shutterOpenClose();

    // Then
    QVERIFY(palette.shutterOpen);
    QVERIFY(!frame.mouseTransparent);
    QTRY_VERIFY(!palette.isMoving());
    QCOMPARE(palette.size(), QSize(200, 80));
}

void PaletteShutterTest::turnedRoundOnTheWayItOpensAgain()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.enableShutter();
    palette.shutterOpenClose();
    palette.sizeAnimation->pause();
    palette.sizeAnimation->setCurrentTime(150);
    const int reached = palette.width();

    // When
    palette.shutterOpenClose();

    // Then
    QCOMPARE(reached, 120);
    QCOMPARE(palette.sizeAnimation->startValue().toSize(), QSize(120, 80));
    QTRY_VERIFY(!palette.isMoving());
    QCOMPARE(palette.width(), 200);
    QVERIFY(!frame.mouseTransparent);
}

void PaletteShutterTest::theHeightStays()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.addTab("First");
    palette.enableShutter();

    // When
    palette.shutterOpenClose();

    // Then
    QCOMPARE(palette.sizeAnimation->endValue().toSize(), QSize(40, 113));
}

void PaletteShutterTest::itsWidthCannotBeSet()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.enableShutter();

    // When
    palette.setShutterWidth(90);
    palette.shutterOpenClose();

    // Then
    QCOMPARE(palette.closedWidth, 40);
    QCOMPARE(palette.sizeAnimation->endValue().toSize(), QSize(40, 80));
}

void PaletteShutterTest::aPaletteWithoutAFrameClosesToo()
{
    // Given
    QWidget plain;
    ShutterPalette palette(&plain);
    palette.enableShutter();

    // When
    palette.shutterOpenClose();

    // Then
    QTRY_COMPARE(palette.width(), 40);
}

void PaletteShutterTest::aClosedPaletteShowsNoneOfItsTabStrip()
{
    // Given
    const TestSupport::Images images;
    QVERIFY(images.areThere());
    ActionTest::FrameProbe frame;
    frame.show();
    ShutterPalette palette(&frame);
    palette.addTab("First");
    palette.enableShutter();
    const QImage open = palette.backImage.toImage();

    // When
    palette.shutterOpenClose();
    QTRY_VERIFY(!palette.isMoving());

    // Then
    QVERIFY(!TestSupport::inkBox(open, Qt::transparent).isEmpty());
    QVERIFY(TestSupport::inkBox(palette.backImage.toImage(), Qt::transparent).isEmpty());
}

void PaletteShutterTest::aClosedPaletteWithTabsIsNoMoreThanItsHandle()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    palette.addTab("Tab");
    palette.enableShutter();
    frame.show();
    QVERIFY(palette.mask().isEmpty());

    // When
    palette.shutterOpenClose();
    QTRY_VERIFY(!palette.isMoving());

    // Then
    QCOMPARE(palette.mask(), QRegion(0, 0, 40, 80));

    // When
    palette.shutterOpenClose();

    // Then
    QVERIFY(palette.mask().isEmpty());
}

void PaletteShutterTest::theHandleButtonClosesAndOpensIt()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    auto* button = new VcAction::Toolbar::ShutterHandle(&palette);
    palette.shutterHandle = button;
    palette.enableShutter();
    QCOMPARE(button->arrowType(), Qt::LeftArrow);

    // When
    button->click();

    // Then
    QVERIFY(!palette.shutterOpen);
    QCOMPARE(button->arrowType(), Qt::RightArrow);
    QTRY_VERIFY(!palette.isMoving());
    QVERIFY(palette.rect().contains(button->geometry()));

    // When
    button->click();

    // Then
    QVERIFY(palette.shutterOpen);
    QCOMPARE(button->arrowType(), Qt::LeftArrow);
    QTRY_COMPARE(palette.width(), 200);
}

void PaletteShutterTest::aPressOnTheHandleButtonDragsNothing()
{
    // Given
    ActionTest::FrameProbe frame;
    ShutterPalette palette(&frame);
    auto* button = new VcAction::Toolbar::ShutterHandle(&palette);
    const QPoint before = palette.pos();

    // When
    TestSupport::press(*button, {3, 3});
    TestSupport::moveTo(*button, {60, 40});

    // Then
    QVERIFY(!palette.dragging);
    QCOMPARE(palette.pos(), before);
}

REGISTER_TEST(PaletteShutterTest, QApplication)
#include "paletteshuttertest.moc"
