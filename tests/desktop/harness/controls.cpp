#include "tests/desktop/harness/controls.h"

#include "tests/desktop/harness/desktop.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/program.h"

#include <X11/keysym.h>

namespace {

constexpr int ListBorder = 3; // pixels
const QColor ListBorderColour(255, 80, 0);

}

bool Controls::openList(QPoint box, const Program& program) const
{
    desktop.pointer.moveTo(box);
    desktop.pointer.press();
    const bool isPainted = eventually([&] {
        if (!isListOpen(program))
            return false;
        // It is on the screen before it is painted.
        const QRect place = desktop.windows.geometry(desktop.windows.listOf(program.pid()));
        const QPoint border(place.center().x(), place.top() + 1);
        return isClose(desktop.screen.colourAt(border), ListBorderColour);
    });
    // Let go on the list later than a double click lasts, the button would choose an entry, and a
    // busy machine may take that long to show the list. Beside it, the button does nothing.
    desktop.pointer.moveTo(box - QPoint(300, 0));
    desktop.pointer.release();
    return isPainted;
}

bool Controls::isListOpen(const Program& program) const
{
    return desktop.windows.listOf(program.pid()) != XCB_NONE;
}

QPoint Controls::placeOf(int entry, int entries, const Program& program) const
{
    const QRect list = desktop.windows.geometry(desktop.windows.listOf(program.pid()))
                           .adjusted(ListBorder, ListBorder, -ListBorder, -ListBorder);
    return {list.center().x(), list.top() + (2 * entry + 1) * list.height() / (2 * entries)};
}

bool Controls::openColourDialog(const Program& program) const
{
    if (!openList(desktop.palette.colourBox(), program))
        return false;
    desktop.keyboard.strike(XK_End);
    desktop.keyboard.strike(XK_Return);
    return eventually([&] {
        const xcb_window_t dialog = colourDialog();
        return dialog != XCB_NONE && desktop.windows.focused() == dialog;
    });
}

void Controls::typeColour(const QByteArray& name) const
{
    desktop.keyboard.strikeWith(XK_Alt_L, 'h'); // to the field "HTML", all selected
    desktop.keyboard.type(name);
    desktop.keyboard.strike(XK_Return);
}

xcb_window_t Controls::colourDialog() const
{
    return desktop.windows.titled("Choose a Custom Color");
}
