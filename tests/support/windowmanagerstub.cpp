#include "tests/support/windowmanagerstub.h"

#include "tests/support/windowprobe.h"

namespace {

xcb_window_t createWindow(const XConnection& x, QSize size)
{
    const xcb_window_t window = xcb_generate_id(x.raw());
    const uint32_t unmanaged = 1;
    xcb_create_window(x.raw(), XCB_COPY_FROM_PARENT, window, x.root(), 0, 0,
                      static_cast<uint16_t>(size.width()), static_cast<uint16_t>(size.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &unmanaged);
    return window;
}

}

AnnouncedWindowManager::AnnouncedWindowManager(const XConnection& connection,
                                               const QByteArray& name)
    : x(connection)
    , window(createWindow(x, {1, 1}))
{
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, window, x.atom("_NET_WM_NAME"),
                        x.atom("UTF8_STRING"), 8, static_cast<uint32_t>(name.size()),
                        name.constData());
    for (const xcb_window_t bearer : {window, x.root()}) {
        xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, bearer,
                            x.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, 1, &window);
    }
    x.synchronise();
}

AnnouncedWindowManager::~AnnouncedWindowManager()
{
    xcb_delete_property(x.raw(), x.root(), x.atom("_NET_SUPPORTING_WM_CHECK"));
    crash();
}

void AnnouncedWindowManager::crash()
{
    xcb_destroy_window(x.raw(), window);
    x.synchronise();
}

WindowFrames::~WindowFrames()
{
    for (const xcb_window_t frame : frames)
        xcb_destroy_window(x.raw(), frame);
    x.synchronise();
}

xcb_window_t WindowFrames::enclose(xcb_window_t window)
{
    const xcb_window_t inner = frames.empty() ? window : frames.back();
    const xcb_window_t frame = createWindow(x, WindowProbe(x, window).size());
    xcb_map_window(x.raw(), frame);
    xcb_reparent_window(x.raw(), inner, frame, 0, 0);
    x.synchronise();
    frames.push_back(frame);
    return frame;
}
