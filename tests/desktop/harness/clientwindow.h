#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <xcb/xcb.h>

class XConnection;

/// A window of another program, filled with one colour, for overlays to get along with. Gone with
/// this object.
class ClientWindow {
public:
    enum class Kind {
        Ordinary,
        AlwaysOnTop,
        Desktop, ///< lies below all others, as a file manager's icons do
        FullScreen, ///< covers the whole screen, as a presentation does
        Dock, ///< reserves its side of the screen, top or bottom, as panels do
        Unmanaged, ///< of no concern to the window manager, as tooltips are
    };

    /// @param place  in screen coordinates, device pixels; the window manager may choose another
    ClientWindow(const XConnection& connection, Kind kind, QRect place, QColor colour);
    ClientWindow(const ClientWindow&) = delete;
    ClientWindow& operator=(const ClientWindow&) = delete;
    ~ClientWindow();

    [[nodiscard]] xcb_window_t id() const { return window; }
    /// Asks for it to be shown, once more if need be; the constructor has asked already.
    void show() const;
    /// Paints it anew in another colour, as far as it is to be seen.
    void fill(QColor colour) const;
    /// Paints it anew with a picture, from its top-left corner.
    void fill(const QImage& picture) const;
    /// Gets the keys from now on; for screens without a window manager.
    void takeKeyboard() const;

private:
    void create(QRect place, QColor colour, bool unmanaged);
    void askForPlace(QRect place);
    void askForNoDecoration();
    void ask(const char* state);
    void becomeDock(QRect place);
    void setProperty(const char* name, xcb_atom_t type, const QList<uint32_t>& values);

    const XConnection& x;
    const xcb_window_t window;
};
