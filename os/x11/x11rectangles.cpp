#include "os/x11/x11rectangles.h"

namespace osUtils::X11 {

std::vector<xcb_rectangle_t> x11Rectangles(const QRegion& region)
{
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : region) {
        rectangles.push_back({static_cast<int16_t>(rect.x()), static_cast<int16_t>(rect.y()),
                              static_cast<uint16_t>(rect.width()),
                              static_cast<uint16_t>(rect.height())});
    }
    return rectangles;
}

}
