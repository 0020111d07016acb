#include "action/widget/vctabholder.h"
#include "tests/action/probes.h"
#include "tests/support/cursorstack.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

using namespace TestSupport;

namespace {

/// A palette of 200 by 80 at 50, 60 of its frame, the pointer elsewhere.
struct PlacedPalette {
    PlacedPalette()
    {
        palette.move(50, 60);
        palette.start();
        frame.show();
        putPointer(frame.mapToGlobal(QPoint(5, 5)));
        takeOverrideCursors();
    }

    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette{&frame, QSize(200, 80)};
};

}

/// What the mouse does to a palette and what it does not do to the frame below.
class PaletteDraggingTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { takeOverrideCursors(); }

    void aPressBeginsADragOnTheHandleOnly_data();
    void aPressBeginsADragOnTheHandleOnly();
    void aDraggedPaletteFollowsThePointer();
    void aPaletteStaysWhereItIsReleased();
    void aPaletteThatIsNotDraggedStays();
    void aReleaseWithoutADragPushesNoCursor();
    void theCursorTellsOfTheDrag();
    void enteringPushesThePalettesCursor();
    void theSameCursorIsPushedEveryTime();
    void pressesOnTheBackgroundDoNotReachTheFrame_data();
    void pressesOnTheBackgroundDoNotReachTheFrame();
    void theWheelOverThePaletteDoesNotReachTheFrame();
};

void PaletteDraggingTest::aPressBeginsADragOnTheHandleOnly_data()
{
    QTest::addColumn<QPointF>("at");
    QTest::addColumn<bool>("drags");

    QTest::newRow("last column of the handle") << QPointF(39, 20) << true;
    QTest::newRow("right of the handle") << QPointF(40, 20) << false;
    QTest::newRow("last row of the handle") << QPointF(10, 46) << true;
    QTest::newRow("in the bottom 33 rows") << QPointF(10, 47) << false;
    QTest::newRow("on the background") << QPointF(100, 30) << false;
}

void PaletteDraggingTest::aPressBeginsADragOnTheHandleOnly()
{
    // Given
    QFETCH(QPointF, at);
    QFETCH(bool, drags);
    PlacedPalette placed;

    // When
    const bool accepted = press(placed.palette, at);

    // Then
    QCOMPARE(placed.palette.dragging, drags);
    QCOMPARE(accepted, drags);
    QCOMPARE(takeOverrideCursors().size(), drags ? 1 : 0);
}

void PaletteDraggingTest::aDraggedPaletteFollowsThePointer()
{
    // Given
    PlacedPalette placed;
    press(placed.palette, QPointF(10, 20));
    QCOMPARE(placed.palette.dragOffset, placed.frame.mapToGlobal(QPoint(10, 20)));

    // When
    moveTo(placed.palette, QPointF(10 + 30, 20 - 15));

    // Then
    QCOMPARE(placed.palette.pos(), QPoint(80, 45));

    // When
    moveTo(placed.palette, QPointF(10 - 100, 20 - 50));

    // Then
    QCOMPARE(placed.palette.pos(), QPoint(-20, -5));
}

void PaletteDraggingTest::aPaletteStaysWhereItIsReleased()
{
    // Given
    PlacedPalette placed;
    press(placed.palette, QPointF(10, 20));
    moveTo(placed.palette, QPointF(15, 25));

    // When
    release(placed.palette, QPointF(10, 20));
    moveTo(placed.palette, QPointF(90, 90));

    // Then
    QVERIFY(!placed.palette.dragging);
    QCOMPARE(placed.palette.pos(), QPoint(55, 65));
}

void PaletteDraggingTest::aPaletteThatIsNotDraggedStays()
{
    // Given
    PlacedPalette placed;
    press(placed.palette, QPointF(40, 20));

    // When
    moveTo(placed.palette, QPointF(60, 20));

    // Then
    QCOMPARE(placed.palette.pos(), QPoint(50, 60));
}

void PaletteDraggingTest::aReleaseWithoutADragPushesNoCursor()
{
    PlacedPalette placed;

    release(placed.palette, QPointF(10, 20));

    QVERIFY(takeOverrideCursors().isEmpty());
}

void PaletteDraggingTest::theCursorTellsOfTheDrag()
{
    // Given
    Images images;
    PlacedPalette placed;

    // When
    press(placed.palette, QPointF(10, 20));
    moveTo(placed.palette, QPointF(11, 20));
    release(placed.palette, QPointF(10, 20));

    // Then
    const QList<QCursor> pushed = takeOverrideCursors();
    QCOMPARE(pushed.size(), 2);
    QVERIFY(areSameObject(pushed.at(1), placed.palette.cursorGrabbed));
    QVERIFY(areSameObject(pushed.at(0), placed.palette.cursorNormal));
}

void PaletteDraggingTest::enteringPushesThePalettesCursor()
{
    // Given
    Images images;
    PlacedPalette placed;

    // When
    enter(placed.palette, QPointF(10, 20));

    // Then
    const QList<QCursor> pushed = takeOverrideCursors();
    QCOMPARE(pushed.size(), 1);
    QVERIFY(areSameObject(pushed.at(0), placed.palette.cursorNormal));
}

void PaletteDraggingTest::theSameCursorIsPushedEveryTime()
{
    // Given
    Images images;
    PlacedPalette placed;

    // When
    enter(placed.palette, QPointF(10, 20));
    leave(placed.palette);
    takeOverrideCursors();
    for (int round = 0; round < 5; ++round)
        enter(placed.palette, QPointF(10, 20));

    // Then
    const QList<QCursor> pushed = takeOverrideCursors();
    QCOMPARE(pushed.size(), 5);
    for (const QCursor& cursor : pushed)
        QVERIFY(areSameObject(cursor, pushed.first()));
}

void PaletteDraggingTest::pressesOnTheBackgroundDoNotReachTheFrame_data()
{
    QTest::addColumn<bool>("onTabHolder");
    QTest::addColumn<QPointF>("at");

    QTest::newRow("palette") << false << QPointF(100, 30);
    QTest::newRow("below the handle") << false << QPointF(10, 70);
    QTest::newRow("tab holder") << true << QPointF(60, 30);
}

void PaletteDraggingTest::pressesOnTheBackgroundDoNotReachTheFrame()
{
    // Given
    QFETCH(bool, onTabHolder);
    QFETCH(QPointF, at);
    PlacedPalette placed;
    QWidget& target = onTabHolder ? *static_cast<QWidget*>(placed.palette.tabWidget())
                                  : static_cast<QWidget&>(placed.palette);

    // When
    press(target, at);
    moveTo(target, at);
    release(target, at);

    // Then
    QCOMPARE(placed.frame.presses, 0);
    QVERIFY(!placed.palette.dragging);
}

void PaletteDraggingTest::theWheelOverThePaletteDoesNotReachTheFrame()
{
    PlacedPalette placed;

    turnWheel(placed.palette, QPointF(100, 30), QPoint(0, 120));
    turnWheel(*placed.palette.tabWidget(), QPointF(60, 30), QPoint(0, 120));

    QCOMPARE(placed.frame.wheelTurns, 0);
}

REGISTER_TEST(PaletteDraggingTest, QApplication)
#include "palettedraggingtest.moc"
