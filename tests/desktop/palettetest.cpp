#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The palette as a thing on the frame: its place, its fading, how it is dragged, what it keeps
/// from the frame.
class PaletteTest : public DesktopTest {
    Q_OBJECT

private slots:
    void itLiesEightyPixelsInFromTheCorner();
    void itFadesWhenTheUserDraws();
    void itReturnsWhenThePointerEnters();
    void aPointerThatOnlyCrossesItLeavesItFaded();
    void itFadesWhenAListIsClosedByAKey_data();
    void itFadesWhenAListIsClosedByAKey();
    void itIsDraggedByItsHandle_data();
    void itIsDraggedByItsHandle();
    void itCannotBeDraggedElsewhere_data();
    void itCannotBeDraggedElsewhere();
    void aPressOnItsBackgroundDrawsNothing_data();
    void aPressOnItsBackgroundDrawsNothing();
    void theWheelOverItsBackgroundKeepsTheColour();

private:
    static constexpr QPoint Away{100, 700};
    static constexpr qreal FadedOpacity = 0.3;
    static constexpr int LastFadeStep =
        1; // a picture taken when the swatch looks bright may lack it

    /// Whether the palette is at its full opacity, judged by the swatch that shows the pen colour.
    [[nodiscard]] bool isBright() const
    {
        return desktop->screen.colourAt(desktop->palette.swatch()) == Qt::yellow;
    }
    [[nodiscard]] bool isFaded() const
    {
        return isClose(desktop->screen.colourAt(desktop->palette.swatch()),
                       mixed(paper, Qt::yellow, FadedOpacity));
    }
    [[nodiscard]] QImage picture() const { return desktop->screen.grab(desktop->palette.area()); }

    const QColor paper{40, 90, 200};
};

void PaletteTest::itLiesEightyPixelsInFromTheCorner()
{
    // given
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(isBright());

    // then
    QVERIFY(parkPointer(Away, Qt::yellow));
    QRect changed;
    const QImage seen = blanked(
        desktop->screen.grab(),
        {{Away - QPoint(30, 30), QSize(60, 60)}, {StartPoint - QPoint(30, 30), QSize(60, 60)}});
    for (int row = 0; row < seen.height(); ++row) {
        for (int column = 0; column < seen.width(); ++column) {
            const QColor colour = seen.pixelColor(column, row);
            if (colour != paper && colour != Qt::black)
                changed |= QRect(column, row, 1, 1);
        }
    }
    // Its picture may leave a margin for a soft edge, but shows on all four sides.
    const QRect area = desktop->palette.area();
    QCOMPARE(area, QRect(1280 - 80 - 305, 800 - 80 - 85, 305, 85));
    QVERIFY(area.contains(changed));
    constexpr int margin = 8;
    QVERIFY(changed.contains(area.adjusted(margin, margin, -margin, -margin)));
}

void PaletteTest::itFadesWhenTheUserDraws()
{
    // given
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(isBright());
    const QImage bright = picture();

    // when
    desktop->pointer.drag(line({200, 200}, {300, 300}));

    // then
    EVENTUALLY(isFaded());
    EVENTUALLY(isClose(picture(), mixed(paper, bright, FadedOpacity), 2));
}

void PaletteTest::itReturnsWhenThePointerEnters()
{
    // given
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(isBright());
    const QImage bright = picture();
    desktop->pointer.click({200, 200});
    EVENTUALLY(isFaded());

    // when
    desktop->pointer.moveTo(desktop->palette.handle());

    // then
    EVENTUALLY(isBright());
    EVENTUALLY(isClose(picture(), bright, LastFadeStep));
}

void PaletteTest::aPointerThatOnlyCrossesItLeavesItFaded()
{
    // given
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.click({200, 200});
    EVENTUALLY(isFaded());

    for (int crossing = 0; crossing < 20; ++crossing) {
        // when
        desktop->pointer.moveTo(desktop->palette.handle());
        desktop->pointer.moveTo(desktop->palette.at({-20, 26}));
    }

    // then
    QVERIFY(parkPointer(Away, Qt::yellow));
    EVENTUALLY(isFaded());
    static_cast<void>(settledPicture());
    QVERIFY(isFaded());
}

void PaletteTest::itFadesWhenAListIsClosedByAKey_data()
{
    QTest::addColumn<bool>("colours");
    QTest::addColumn<unsigned int>("key");

    QTest::newRow("the sizes, given up") << false << unsigned{XK_Escape};
    QTest::newRow("the sizes, chosen") << false << unsigned{XK_Return};
    QTest::newRow("the colours, given up") << true << unsigned{XK_Escape};
    QTest::newRow("the colours, chosen") << true << unsigned{XK_Return};
}

void PaletteTest::itFadesWhenAListIsClosedByAKey()
{
    // given
    QFETCH(bool, colours);
    QFETCH(unsigned int, key);
    desktop->backdrop.fill(paper);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const PaletteLayout& palette = desktop->palette;
    desktop->pointer.moveTo(palette.handle());
    EVENTUALLY(isBright());
    const QColor handle = desktop->screen.colourAt(palette.handle());
    QVERIFY(desktop->controls.openList(colours ? palette.colourBox() : palette.sizeBox(), korvel));
    desktop->pointer.moveTo(Away);
    static_cast<void>(settledPicture());
    QCOMPARE(desktop->screen.colourAt(palette.handle()), handle);

    // when
    desktop->keyboard.strike(key);

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    EVENTUALLY(isFaded());
    QCOMPARE(korvel.status(), ChildProcess::Running);
}

void PaletteTest::itIsDraggedByItsHandle_data()
{
    QTest::addColumn<QPointF>("grip");

    QTest::newRow("middle of the handle") << QPointF(20, 26);
    QTest::newRow("its first pixel") << QPointF(0, 0);
    QTest::newRow("its last pixel") << QPointF(39, 51);
}

void PaletteTest::itIsDraggedByItsHandle()
{
    // given
    QFETCH(QPointF, grip);
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const QPoint from = desktop->palette.at(grip);
    desktop->pointer.moveTo(from);
    EVENTUALLY(isBright());
    const QImage bright = picture();

    // when
    const QPoint distance(-500, -300);
    desktop->pointer.drag({from, from - QPoint(30, 10), from + distance});

    // then
    const PaletteLayout moved = desktop->palette.movedBy(distance);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(moved.swatch()), QColor(Qt::yellow));
    EVENTUALLY(isClose(desktop->screen.grab(moved.area()), bright, LastFadeStep));
    QImage bare(desktop->palette.area().size(), QImage::Format_RGB32);
    bare.fill(paper);
    QCOMPARE(picture(), bare);
}

void PaletteTest::itCannotBeDraggedElsewhere_data()
{
    QTest::addColumn<QPointF>("grip");

    QTest::newRow("first pixel right of the handle") << QPointF(40, 3);
    QTest::newRow("first pixel below the handle") << QPointF(20, 52);
    QTest::newRow("bottom left corner") << QPointF(10, 80);
    QTest::newRow("between the boxes") << QPointF(122, 60);
}

void PaletteTest::itCannotBeDraggedElsewhere()
{
    // given
    QFETCH(QPointF, grip);
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const QPoint from = desktop->palette.at(grip);
    desktop->pointer.moveTo(from);
    EVENTUALLY(isBright());
    const QImage bright = picture();

    // when
    desktop->pointer.drag({from, from - QPoint(30, 10), from - QPoint(500, 300)});

    // then
    QVERIFY(parkPointer(Away, Qt::yellow));
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(isClose(picture(), bright, LastFadeStep));
}

void PaletteTest::aPressOnItsBackgroundDrawsNothing_data()
{
    itCannotBeDraggedElsewhere_data();
}

void PaletteTest::aPressOnItsBackgroundDrawsNothing()
{
    // given
    QFETCH(QPointF, grip);
    desktop->backdrop.fill(paper);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const QPoint from = desktop->palette.at(grip);

    // when
    desktop->pointer.drag({from, from - QPoint(30, 10), {500, 300}, {400, 200}});

    // then
    QVERIFY(parkPointer(Away, Qt::yellow));
    QImage clean(800, 600, QImage::Format_RGB32);
    clean.fill(paper);
    QCOMPARE(desktop->screen.grab({0, 0, 800, 600}), clean);
}

void PaletteTest::theWheelOverItsBackgroundKeepsTheColour()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    for (const QPointF& place : {QPointF(20, 26), QPointF(122, 60), QPointF(230, 75)}) {
        desktop->pointer.moveTo(desktop->palette.at(place));
        desktop->pointer.turn(Pointer::Wheel::AwayFromUser);
    }

    // then
    QVERIFY(parkPointer(Away, Qt::yellow));
}

REGISTER_TEST(PaletteTest, QCoreApplication)
#include "palettetest.moc"
