#pragma once

#include <QByteArray>
#include <QWindow>

#include <xcb/xcb.h>

namespace Windowing::X11 {

/// Set in the code of an event that another client has sent. So a window manager tells a window where it is on the
/// screen, if it has put a frame around it; the server's own notices tell it inside the frame.
constexpr uint8_t sentByAClient = 0x80;

/// The code that the server marks an event of this type with.
template <typename Notice> inline constexpr uint8_t noticeCode = 0;
template <> inline constexpr uint8_t noticeCode<xcb_map_notify_event_t> = XCB_MAP_NOTIFY;
template <> inline constexpr uint8_t noticeCode<xcb_reparent_notify_event_t> = XCB_REPARENT_NOTIFY;
template <>
inline constexpr uint8_t noticeCode<xcb_configure_notify_event_t> = XCB_CONFIGURE_NOTIFY;

/// A native event as the notice of this type, if it is one and tells of the window; else null.
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
