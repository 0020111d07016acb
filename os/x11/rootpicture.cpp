#include "os/x11/rootpicture.h"

#include "os/x11/connection.h"
#include "os/x11/pixellayout.h"
#include "os/x11/replypointer.h"

#include <cstdlib>

namespace osUtils::X11 {

QImage rootPicture(xcb_connection_t* server, const QRect& area)
{
    if (area.isEmpty() || !hasToolkitsPixels(*xcb_get_setup(server)))
        return {};
    constexpr uint32_t allPlanes = ~0U;
    const auto cookie = xcb_get_image(
        server, XCB_IMAGE_FORMAT_Z_PIXMAP, rootWindow(server), static_cast<int16_t>(area.x()),
        static_cast<int16_t>(area.y()), static_cast<uint16_t>(area.width()),
        static_cast<uint16_t>(area.height()), allPlanes);
    ReplyPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(server, cookie, nullptr));
    const qsizetype pixels = qsizetype{area.width()} * area.height();
    if (!reply || xcb_get_image_data_length(reply.get()) != pixels * qsizetype{sizeof(QRgb)})
        return {};

    uchar* const data = xcb_get_image_data(reply.get());
    makeOpaque(data, area.size());
    return toolkitsPicture(data, area.size(), std::free, reply.release());
}

}
