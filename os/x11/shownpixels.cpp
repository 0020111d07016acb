#include "os/x11/shownpixels.h"

#include "os/x11/connection.h"
#include "os/x11/pixellayout.h"
#include "os/x11/replypointer.h"
#include "os/x11/x11rectangles.h"

#include <xcb/shm.h>

namespace osUtils::X11 {

namespace {

bool isSuited(xcb_window_t window, QSize size)
{
    const ReplyPointer<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection(), xcb_get_geometry(connection(), window), nullptr));
    return geometry && geometry->depth == toolkitsDepth
        && QSize(geometry->width, geometry->height) == size;
}

xcb_gcontext_t makeClip(xcb_window_t window, const QRegion& region)
{
    const std::vector<xcb_rectangle_t> rectangles = x11Rectangles(region);
    const xcb_gcontext_t clip = xcb_generate_id(connection());
    xcb_create_gc(connection(), clip, window, 0, nullptr);
    xcb_set_clip_rectangles(connection(), XCB_CLIP_ORDERING_UNSORTED, clip, 0, 0,
                            static_cast<uint32_t>(rectangles.size()), rectangles.data());
    return clip;
}

}

bool showPixels(WId id, const System::SharedPixels& pixels, const QRegion& region)
{
    const auto window = static_cast<xcb_window_t>(id);
    if (!isSuited(window, pixels.size))
        return false;
    const auto width = static_cast<uint16_t>(pixels.size.width());
    const auto height = static_cast<uint16_t>(pixels.size.height());
    constexpr uint8_t untold = 0;

    const xcb_gcontext_t clip = makeClip(window, region);
    xcb_shm_put_image(connection(), window, clip, width, height, 0, 0, width, height, 0, 0,
                      toolkitsDepth, XCB_IMAGE_FORMAT_Z_PIXMAP, untold, *pixels.number, 0);
    xcb_free_gc(connection(), clip);
    xcb_flush(connection());
    return true;
}

}
