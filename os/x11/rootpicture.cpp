#include "os/x11/rootpicture.h"

#include "os/x11/replypointer.h"

#include <QSysInfo>

#include <algorithm>
#include <cstdlib>

namespace osUtils::X11 {

namespace {

constexpr uint8_t trueColourDepth = 24;
constexpr uint8_t bitsPerPixel = 32;
constexpr QRgb opaque = 0xff000000;

const xcb_visualtype_t* visualOf(const xcb_screen_t& screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem;
         xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem;
             xcb_visualtype_next(&visual)) {
            if (visual.data->visual_id == screen.root_visual)
                return visual.data;
        }
    }
    return nullptr;
}

bool hasWidePixels(const xcb_setup_t& setup)
{
    for (auto format = xcb_setup_pixmap_formats_iterator(&setup); format.rem;
         xcb_format_next(&format)) {
        if (format.data->depth == trueColourDepth)
            return format.data->bits_per_pixel == bitsPerPixel;
    }
    return false;
}

/// Whether the server's pixels are laid out as the toolkit's of 32 bits.
bool hasToolkitsPixels(const xcb_setup_t& setup)
{
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(&setup).data;
    constexpr auto ownOrder = QSysInfo::ByteOrder == QSysInfo::LittleEndian
        ? XCB_IMAGE_ORDER_LSB_FIRST
        : XCB_IMAGE_ORDER_MSB_FIRST;
    const xcb_visualtype_t* visual = visualOf(screen);
    return setup.image_byte_order == ownOrder && screen.root_depth == trueColourDepth && visual
        && visual->red_mask == 0xff0000 && visual->green_mask == 0xff00 && visual->blue_mask == 0xff
        && hasWidePixels(setup);
}

}

QImage rootPicture(xcb_connection_t* server, const QRect& area)
{
    const xcb_setup_t& setup = *xcb_get_setup(server);
    if (area.isEmpty() || !hasToolkitsPixels(setup))
        return {};
    constexpr uint32_t allPlanes = ~0U;
    const auto cookie = xcb_get_image(
        server, XCB_IMAGE_FORMAT_Z_PIXMAP, xcb_setup_roots_iterator(&setup).data->root,
        static_cast<int16_t>(area.x()), static_cast<int16_t>(area.y()),
        static_cast<uint16_t>(area.width()), static_cast<uint16_t>(area.height()), allPlanes);
    ReplyPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(server, cookie, nullptr));
    const qsizetype pixels = qsizetype{area.width()} * area.height();
    if (!reply || xcb_get_image_data_length(reply.get()) != pixels * qsizetype{sizeof(QRgb)})
        return {};

    uchar* const data = xcb_get_image_data(reply.get());
    // The server leaves open what is in the byte that no colour uses.
    auto* const first = reinterpret_cast<QRgb*>(data);
    std::transform(first, first + pixels, first, [](QRgb pixel) { return pixel | opaque; });
    return {data,
            area.width(),
            area.height(),
            qsizetype{area.width()} * qsizetype{sizeof(QRgb)},
            QImage::Format_RGB32,
            std::free,
            reply.release()};
}

}
