#include "os/x11/pixellayout.h"

#include <QSysInfo>

#include <algorithm>

namespace osUtils::X11 {

namespace {

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
        if (format.data->depth == toolkitsDepth)
            return format.data->bits_per_pixel == bitsPerPixel;
    }
    return false;
}

}

bool hasToolkitsPixels(const xcb_setup_t& setup)
{
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(&setup).data;
    constexpr auto ownOrder = QSysInfo::ByteOrder == QSysInfo::LittleEndian
        ? XCB_IMAGE_ORDER_LSB_FIRST
        : XCB_IMAGE_ORDER_MSB_FIRST;
    const xcb_visualtype_t* visual = visualOf(screen);
    return setup.image_byte_order == ownOrder && screen.root_depth == toolkitsDepth && visual
        && visual->red_mask == 0xff0000 && visual->green_mask == 0xff00 && visual->blue_mask == 0xff
        && hasWidePixels(setup);
}

void makeOpaque(void* pixels, QSize size)
{
    auto* const first = static_cast<QRgb*>(pixels);
    std::transform(first, first + qsizetype{size.width()} * size.height(), first,
                   [](QRgb pixel) { return pixel | opaque; });
}

QImage toolkitsPicture(void* pixels, QSize size, QImageCleanupFunction release, void* owner)
{
    const qsizetype rowBytes = qsizetype{size.width()} * qsizetype{sizeof(QRgb)};
    return {static_cast<uchar*>(pixels), size.width(), size.height(), rowBytes,
            QImage::Format_RGB32,        release,      owner};
}

}
