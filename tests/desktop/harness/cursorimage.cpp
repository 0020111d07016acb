#include "tests/desktop/harness/cursorimage.h"

#include "tests/desktop/harness/xconnection.h"

#include <xcb/xfixes.h>

CursorImage CursorImage::current(const XConnection& x)
{
    // The server answers no question of this extension before it was told the version.
    const auto versionCookie = xcb_xfixes_query_version(x.raw(), 2, 0);
    const Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(x.raw(), versionCookie, nullptr));
    const auto cookie = xcb_xfixes_get_cursor_image(x.raw());
    const Reply<xcb_xfixes_get_cursor_image_reply_t> reply(
        xcb_xfixes_get_cursor_image_reply(x.raw(), cookie, nullptr));
    if (!reply)
        return {};
    const auto* pixels =
        reinterpret_cast<const uchar*>(xcb_xfixes_get_cursor_image_cursor_image(reply.get()));
    const QImage view(pixels, reply->width, reply->height, QImage::Format_ARGB32_Premultiplied);
    return {view.copy(), {reply->xhot, reply->yhot}};
}
