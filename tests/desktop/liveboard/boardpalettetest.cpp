#include "tests/desktop/harness/ink.h"
#include "tests/desktop/liveboard/boardtest.h"
#include "tests/desktop/liveboard/shapedrag.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The board's palette: tabs, styles, and what it has in common with the pen's.
class BoardPaletteTest : public BoardTest {
    Q_OBJECT

private slots:
    void theTabStripHasNoGap();
    void tabsSwitchPages();
    void theStyleButtonsSwitchBetweenSizesAndShapes();
    void aSizeChosenOnOnePageIsThatOfTheOther();
    void itFadesWhileOneDrawsAndComesBack();
    void itStaysBrightWhileAListIsOpen();
    void itIsDraggedByItsHandle();

private:
    /// A picture taken when the handle looks bright may lack it.
    static constexpr int LastFadeStep = 2;

    [[nodiscard]] QImage part(QPointF from, QPointF to) const
    {
        return desktop->screen.grab({palette().at(from), palette().at(to)});
    }
    /// What stands above the box on the page of the shapes.
    [[nodiscard]] QImage title() const { return part({102, 8}, {150, 20}); }
    /// The icon that the box shows.
    [[nodiscard]] QColor icon() const { return colourAt(palette().at({132, 46})); }
    [[nodiscard]] QImage wholePalette() const { return desktop->screen.grab(palette().area()); }
};

void BoardPaletteTest::theTabStripHasNoGap()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QVERIFY(wakePalette());

    // when
    const QImage strip = part({37, 113}, {40 + 2 * 126 + 4, 114});

    // then
    for (int column = 0; column < strip.width(); ++column)
        QVERIFY(isClose(strip.pixelColor(column, 0), strip.pixelColor(strip.width() / 2, 0), 3));
    QVERIFY(!isClose(strip.pixelColor(0, 0), Paper, 20));
    const QImage beyond = part({40 + 2 * 126 + 8, 90}, {305, 117});
    QCOMPARE(countOf(beyond, Paper), beyond.width() * beyond.height());
}

void BoardPaletteTest::tabsSwitchPages()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QVERIFY(wakePalette());
    EVENTUALLY_COMPARE(colourAt(palette().swatch()), QColor(Qt::yellow));
    const QImage firstPage = part({45, 10}, {240, 80});

    // when
    clickTab(1);

    // then
    EVENTUALLY_COMPARE(colourAt(palette().swatch()) == QColor(Qt::yellow), false);
    EVENTUALLY_COMPARE(icon(), QColor(Qt::black));

    // when
    clickTab(0);
    QVERIFY(wakePalette());

    // then
    EVENTUALLY(isClose(part({45, 10}, {240, 80}), firstPage, LastFadeStep));
}

void BoardPaletteTest::theStyleButtonsSwitchBetweenSizesAndShapes()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    clickTab(1);
    EVENTUALLY_COMPARE(icon(), QColor(Qt::black));
    const QImage size = title();

    // when
    desktop->pointer.click(palette().at(ShapeButton));

    // then
    EVENTUALLY_COMPARE(icon(), QColor(Qt::gray));
    EVENTUALLY(title() != size);
    desktop->pointer.drag(line({100, 100}, {300, 250}));
    EVENTUALLY_COMPARE(colourAt({200, 175}), QColor(Qt::yellow));
    QCOMPARE(colourAt({110, 105}), Paper); // an ellipse leaves its corner free

    // when
    desktop->pointer.click(palette().at(FreehandButton));

    // then
    EVENTUALLY_COMPARE(icon(), QColor(Qt::black));
    EVENTUALLY_COMPARE(title(), size);
    desktop->pointer.drag(line({100, 300}, {300, 300}));
    EVENTUALLY_COMPARE(colourAt({102, 300}), QColor(Qt::yellow));
}

void BoardPaletteTest::aSizeChosenOnOnePageIsThatOfTheOther()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    clickTab(1);
    EVENTUALLY_COMPARE(icon(), QColor(Qt::black));

    // when
    QVERIFY(desktop->controls.openList(palette().at(ShapeBox), program));
    constexpr int thirtyTwo = 6;
    constexpr int sizes = 7;
    desktop->pointer.click(desktop->controls.placeOf(thirtyTwo, sizes, program));
    EVENTUALLY(!desktop->controls.isListOpen(program));
    clickTab(0);

    // then
    const QPoint edgeOfTheDisc = palette().at({71 + 12, 46});
    EVENTUALLY_COMPARE(colourAt(edgeOfTheDisc), QColor(Qt::black));
    desktop->pointer.drag(line({100, 100}, {300, 100}));
    EVENTUALLY_COMPARE(colourAt({200, 100 + qRound(14 * scale())}), QColor(Qt::yellow));
}

void BoardPaletteTest::itFadesWhileOneDrawsAndComesBack()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QVERIFY(wakePalette());
    const QImage bright = settledPicture().copy(palette().area());

    // when
    desktop->pointer.drag(line({100, 100}, {200, 200}));

    // then
    constexpr qreal faded = 0.3;
    constexpr int rounding = 3;
    EVENTUALLY(isClose(wholePalette(), mixed(Paper, bright, faded), rounding));

    // when
    QVERIFY(wakePalette());

    // then
    EVENTUALLY(isClose(wholePalette(), bright, rounding));
}

void BoardPaletteTest::itStaysBrightWhileAListIsOpen()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QVERIFY(wakePalette());

    // when
    QVERIFY(desktop->controls.openList(palette().sizeBox(), program));
    desktop->pointer.moveTo({200, 200});

    // then
    static_cast<void>(settledPicture());
    QVERIFY(isBright());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY(!desktop->controls.isListOpen(program));
}

void BoardPaletteTest::itIsDraggedByItsHandle()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QVERIFY(wakePalette());
    const QImage bright = settledPicture().copy(palette().area());
    const QPoint distance(-200, -150);

    // when
    const QPoint grip = palette().at({20, 20});
    desktop->pointer.drag({grip, grip - QPoint(20, 20), grip + distance});

    // then
    EVENTUALLY(isClose(desktop->screen.grab(palette().movedBy(distance).area()), bright, 3));
    const QRect left = palette().area();
    const QRect covered = palette().movedBy(distance).area() & left;
    const QImage bare = blanked(desktop->screen.grab(), {covered}).copy(left);
    QCOMPARE(countOf(bare, Paper),
             left.width() * left.height() - covered.width() * covered.height());
}

REGISTER_TEST(BoardPaletteTest, QCoreApplication)
#include "boardpalettetest.moc"
