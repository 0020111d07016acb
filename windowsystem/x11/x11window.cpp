#include "windowsystem/x11/x11window.h"

#include "windowsystem/x11/atoms.h"
#include "windowsystem/x11/connection.h"
#include "windowsystem/x11/property.h"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>

namespace Windowing::X11 {

namespace {

xcb_window_t toWindow(WId window)
{
    return static_cast<xcb_window_t>(window);
}

// A request of the Extended Window Manager Hints, by client message to the root window.
void askWindowManager(WId window, QByteArrayView request, std::initializer_list<quint32> data)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = toWindow(window);
    message.type = atom(request);
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(connection(), false, rootWindow(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection());
}

void setShape(xcb_shape_sk_t kind, WId window, const std::optional<QRegion>& region)
{
    if (region) {
        const std::vector<xcb_rectangle_t> rectangles = x11Rectangles(*region);
        xcb_shape_rectangles(connection(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED,
                             toWindow(window), 0, 0, static_cast<uint32_t>(rectangles.size()),
                             rectangles.data());
    } else {
        xcb_shape_mask(connection(), XCB_SHAPE_SO_SET, kind, toWindow(window), 0, 0, XCB_NONE);
    }
    xcb_flush(connection());
}

}

QByteArray windowManagerName()
{
    const xcb_window_t window = managerWindow(connection(), rootWindow(), atom(supportingWmCheck));
    if (window == XCB_WINDOW_NONE)
        return {};
    const auto cookie = askForProperty(connection(), window, atom(wmName));
    return QByteArray::fromStdString(
        bytesIn(replyTo(xcb_get_property_reply, connection(), cookie)));
}

void setWindowLayer(WId window, const WindowLayer& layer)
{
    using Type = WindowLayer::Type;
    // In the standard's order of preference: a window manager takes the first type that it knows.
    std::vector<xcb_atom_t> types;
    if (layer.type != Type::Normal)
        types.push_back(
            atom(layer.type == Type::Dock ? wmWindowTypeDock : wmWindowTypeNotification));
    types.push_back(atom(wmWindowTypeNormal));
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, toWindow(window), atom(wmWindowType),
                        XCB_ATOM_ATOM, 32, static_cast<uint32_t>(types.size()), types.data());
    xcb_flush(connection());
}

void setGeometry(WId window, const QRect& geometry)
{
    const std::array<uint32_t, 4> values{
        static_cast<uint32_t>(geometry.x()), static_cast<uint32_t>(geometry.y()),
        static_cast<uint32_t>(geometry.width()), static_cast<uint32_t>(geometry.height())};
    xcb_configure_window(connection(), toWindow(window),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                             | XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    xcb_flush(connection());
}

QPoint positionOnDesktop(WId window)
{
    const auto cookie =
        xcb_translate_coordinates(connection(), toWindow(window), rootWindow(), 0, 0);
    const auto reply = replyTo(xcb_translate_coordinates_reply, connection(), cookie);
    return reply ? QPoint(reply->dst_x, reply->dst_y) : QPoint();
}

bool isMappedWithFrames(WId window)
{
    const auto cookie = xcb_get_window_attributes(connection(), toWindow(window));
    const auto reply = replyTo(xcb_get_window_attributes_reply, connection(), cookie);
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

void allowAnySize(WId window)
{
    // The flags come first; what they no longer tell of may stay.
    constexpr uint32_t steps = 1U << 6 | 1U << 8; // their width, and where they begin
    std::vector<uint32_t> hints =
        numbersOf(connection(), toWindow(window), XCB_ATOM_WM_NORMAL_HINTS);
    if (hints.empty())
        return;
    hints.front() &= ~steps;
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, toWindow(window),
                        XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32,
                        static_cast<uint32_t>(hints.size()), hints.data());
    xcb_flush(connection());
}

void keepAbove(WId window)
{
    // Action 1 adds the state, source 1 is a normal application.
    askWindowManager(window, wmState, {1, atom(wmStateAbove), 0, 1});
}

void stopKeepingAbove(WId window)
{
    askWindowManager(window, wmState, {0, atom(wmStateAbove), 0, 1}); // action 0 removes it
}

void activate(WId window)
{
    // Source 2 is the user. Time 0 means the time of the request: the time of the last event would
    // be older than the window manager's own focus change, and the server would ignore the request.
    askWindowManager(window, activeWindow, {2, 0});
    // Xfwm4 (seen in 4.18) considers a dock focused as soon as its dialog is gone, and nobody has
    // the keyboard. Without a window manager nobody handles the request above.
    const auto cookie = xcb_set_input_focus_checked(connection(), XCB_INPUT_FOCUS_PARENT,
                                                    toWindow(window), XCB_CURRENT_TIME);
    // Qt would report the error if the window is gone or not on the screen.
    xcb_discard_reply(connection(), cookie.sequence);
    xcb_flush(connection());
}

WId focusedWindow()
{
    const auto cookie = xcb_get_input_focus(connection());
    const auto reply = replyTo(xcb_get_input_focus_reply, connection(), cookie);
    return reply && reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT ? reply->focus : 0;
}

void requestSize(WId window, QSize size)
{
    const std::array<uint32_t, 2> values{static_cast<uint32_t>(size.width()),
                                         static_cast<uint32_t>(size.height())};
    xcb_configure_window(connection(), toWindow(window),
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values.data());
    xcb_flush(connection());
}

void setCardinals(WId window, QByteArrayView property, std::initializer_list<quint32> values)
{
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, toWindow(window), atom(property),
                        XCB_ATOM_CARDINAL, 32, static_cast<uint32_t>(values.size()),
                        values.begin());
    xcb_flush(connection());
}

void deleteProperty(WId window, QByteArrayView property)
{
    xcb_delete_property(connection(), toWindow(window), atom(property));
    xcb_flush(connection());
}

std::vector<WId> windowAndFrames(WId window)
{
    std::vector<WId> windows;
    for (xcb_window_t current = toWindow(window); current != XCB_WINDOW_NONE;) {
        const auto cookie = xcb_query_tree(connection(), current);
        const auto tree = replyTo(xcb_query_tree_reply, connection(), cookie);
        if (!tree || current == tree->root)
            break;
        windows.push_back(current);
        current = tree->parent == tree->root ? xcb_window_t{XCB_WINDOW_NONE} : tree->parent;
    }
    return windows;
}

void setInputShape(WId window, const std::optional<QRegion>& region)
{
    setShape(XCB_SHAPE_SK_INPUT, window, region);
}

void setVisibleShape(WId window, const std::optional<QRegion>& region)
{
    setShape(XCB_SHAPE_SK_BOUNDING, window, region);
}

}
