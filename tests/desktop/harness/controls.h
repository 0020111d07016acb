#pragma once

#include <QPoint>

#include <xcb/xcb.h>

class Program;
struct Desktop;

/// Works the palette's controls as a user does, and waits for the windows that they open.
class Controls {
public:
    explicit Controls(const Desktop& where)
        : desktop(where)
    {
    }

    /// Presses on a box of the palette and leaves its list open, the pointer beside it. False if no
    /// list shows itself.
    [[nodiscard]] bool openList(QPoint box, const Program& program) const;
    [[nodiscard]] bool isListOpen(const Program& program) const;
    /// Where to click for an entry of the open list.
    /// @param entry  counted from 0     @param entries  how many the list has
    [[nodiscard]] QPoint placeOf(int entry, int entries, const Program& program) const;

    /// Chooses the last entry of the colour list. False if no dialog appears and takes the
    /// keyboard.
    [[nodiscard]] bool openColourDialog(const Program& program) const;
    /// Types a colour into the open dialog's field and confirms it.
    /// @param name  such as "#12ab56"
    void typeColour(const QByteArray& name) const;
    /// XCB_NONE while there is none on the screen.
    [[nodiscard]] xcb_window_t colourDialog() const;

private:
    const Desktop& desktop;
};
