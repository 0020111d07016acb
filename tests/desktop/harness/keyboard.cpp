#include "tests/desktop/harness/keyboard.h"

#include "tests/desktop/harness/xconnection.h"

#include <X11/keysym.h>
#include <xcb/xtest.h>

Keyboard::Key Keyboard::find(xcb_keysym_t symbol) const
{
    const xcb_setup_t* setup = xcb_get_setup(x.raw());
    const int count = setup->max_keycode - setup->min_keycode + 1;
    const auto cookie =
        xcb_get_keyboard_mapping(x.raw(), setup->min_keycode, static_cast<uint8_t>(count));
    const Reply<xcb_get_keyboard_mapping_reply_t> map(
        xcb_get_keyboard_mapping_reply(x.raw(), cookie, nullptr));
    if (!map)
        return {};
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    for (int key = 0; key < count; ++key) {
        const xcb_keysym_t* levels = symbols + key * map->keysyms_per_keycode; // plain, shifted, …
        for (int level = 0; level < qMin<int>(2, map->keysyms_per_keycode); ++level) {
            if (levels[level] == symbol)
                return {static_cast<xcb_keycode_t>(setup->min_keycode + key), level == 1};
        }
    }
    return {};
}

void Keyboard::send(int type, xcb_keycode_t code) const
{
    xcb_test_fake_input(x.raw(), static_cast<uint8_t>(type), code, XCB_CURRENT_TIME, x.root(), 0, 0,
                        0);
    x.synchronise();
}

void Keyboard::strike(xcb_keysym_t symbol) const
{
    const Key key = find(symbol);
    const xcb_keycode_t shift = find(XK_Shift_L).code;
    if (key.needsShift)
        send(XCB_KEY_PRESS, shift);
    send(XCB_KEY_PRESS, key.code);
    send(XCB_KEY_RELEASE, key.code);
    if (key.needsShift)
        send(XCB_KEY_RELEASE, shift);
}

void Keyboard::strikeWith(xcb_keysym_t held, xcb_keysym_t symbol) const
{
    const xcb_keycode_t heldCode = find(held).code;
    send(XCB_KEY_PRESS, heldCode);
    strike(symbol);
    send(XCB_KEY_RELEASE, heldCode);
}

void Keyboard::type(const QByteArray& latin1) const
{
    for (const char character : latin1) // the symbols of Latin-1 are its character codes
        strike(static_cast<unsigned char>(character));
}
