#include "tests/desktop/liveboard/boardtest.h"

#include "tests/desktop/harness/ink.h"

namespace {

const QColor HandleColour(255, 80, 0);

}

void BoardTest::furnish()
{
    MatrixTest::furnish();
    // Not quite: a window manager takes an undecorated window of the screen's size for one in full
    // screen, which lies above all others while it has the keyboard.
    const QRect place = desktop->screen.area().adjusted(0, 0, 0, -1);
    paper.emplace(desktop->x, ClientWindow::Kind::Ordinary, place, Paper);
    EVENTUALLY(shows(*paper, Paper));
}

void BoardTest::clearAway()
{
    paper.reset();
    MatrixTest::clearAway();
}

qreal BoardTest::scale()
{
    return qgetenv("KORVEL_SCALE").toDouble();
}

Launch BoardTest::board()
{
    return {.executable = qgetenv("KORVEL_LIVEBOARD"),
            .environment = {{"QT_SCALE_FACTOR", qgetenv("KORVEL_SCALE")}}};
}

PaletteLayout BoardTest::palette() const
{
    return PaletteLayout(desktop->x.size(), scale(), {305, 118});
}

bool BoardTest::isReady(const Program& program) const
{
    // A faded handle is still far from the paper's colour.
    return program.hasKeyboard() && !isClose(colourAt(palette().at({5, 8})), Paper, 20);
}

bool BoardTest::isBright() const
{
    return isClose(colourAt(palette().at({5, 8})), HandleColour);
}

bool BoardTest::wakePalette() const
{
    desktop->pointer.moveTo(palette().at({20, 10})); // no control
    return eventually([this] { return isBright(); });
}

bool BoardTest::chooseShape(QPoint box, int entry, const Program& program) const
{
    constexpr int shapes = 3;
    if (!desktop->controls.openList(box, program))
        return false;
    desktop->pointer.click(desktop->controls.placeOf(entry, shapes, program));
    return eventually([&] { return !desktop->controls.isListOpen(program); });
}

QImage BoardTest::drawing() const
{
    return blanked(desktop->screen.grab(), {palette().area().adjusted(-2, -2, 2, 2)});
}
