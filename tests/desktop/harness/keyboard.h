#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

class XConnection;

/// The keyboard, struck as if by hand. Keys are named by their symbols (X11/keysym.h).
class Keyboard {
public:
    explicit Keyboard(const XConnection& connection)
        : x(connection)
    {
    }

    /// Whether a key has this symbol, plain or with Shift.
    [[nodiscard]] bool has(xcb_keysym_t symbol) const { return find(symbol).code != 0; }
    /// Presses and releases one key, with Shift held if the symbol needs it.
    void strike(xcb_keysym_t symbol) const;
    /// The same while another key, such as Alt, is held.
    void strikeWith(xcb_keysym_t held, xcb_keysym_t symbol) const;
    /// Strikes the key of every character.
    void type(const QByteArray& latin1) const;

private:
    struct Key {
        xcb_keycode_t code = 0;
        bool needsShift = false;
    };
    [[nodiscard]] Key find(xcb_keysym_t symbol) const;
    void send(int type, xcb_keycode_t code) const;

    const XConnection& x;
};
