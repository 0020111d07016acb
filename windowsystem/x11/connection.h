#pragma once

#include <QRegion>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <vector>

/// What all code that talks to the X server has in common.
namespace Windowing::X11 {

/// Qt's own connection; null where Qt does not run on an X server, or not at all.
[[nodiscard]] xcb_connection_t* connection();

/// The root window of a server's first screen.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* server);

/// The root window on Qt's connection, which must exist.
[[nodiscard]] xcb_window_t rootWindow();

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// A reply, allocated by XCB and freed with this pointer; null if there is none.
template <typename Reply> using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

/// Waits for the reply to a request.
/// @param wait  the function of XCB that does, as xcb_get_property_reply
template <typename Reply, typename Cookie>
ReplyPointer<Reply> replyTo(Reply* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                            xcb_connection_t* server, Cookie cookie)
{
    return ReplyPointer<Reply>(wait(server, cookie, nullptr));
}

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection besides Qt's, for a program that has none.
using OwnConnection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// A region in the form that X11 requests take.
/// @param region  in device pixels
[[nodiscard]] std::vector<xcb_rectangle_t> x11Rectangles(const QRegion& region);

}
