#pragma once

#include <QByteArray>
#include <QWindow>

#include <xcb/xcb.h>

namespace Windowing::X11 {

/// Set in the code of an event that another client has sent. This is how a window manager that has
/// put a frame around a window tells it where it is on the screen; the server's own notices give
/// the position inside the frame.
constexpr uint8_t sentByAClient = 0x80;

/// The code by which the server marks an event of this type.
template <typename Notice> inline constexpr uint8_t noticeCode = 0;
template <> inline constexpr uint8_t noticeCode<xcb_map_notify_event_t> = XCB_MAP_NOTIFY;
template <> inline constexpr uint8_t noticeCode<xcb_reparent_notify_event_t> = XCB_REPARENT_NOTIFY;
template <>
inline constexpr uint8_t noticeCode<xcb_configure_notify_event_t> = XCB_CONFIGURE_NOTIFY;

/// A native event as a notice of this type, if it is one and concerns the window; otherwise null.
template <typename Notice>
Notice* structureNotice(const QByteArray& eventType, void* message, WId window)
{
    static_assert(noticeCode<Notice> != 0);
    auto* const notice = static_cast<Notice*>(message);
    const bool isWanted = eventType == "xcb_generic_event_t"
        && (notice->response_type & ~sentByAClient)
            == noticeCode<Notice> && notice->window == window;
    return isWanted ? notice : nullptr;
}

}
