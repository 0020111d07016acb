#include "bench/desktop/pixelprobe.h"

#include "bench/desktop/failure.h"
#include "tests/desktop/harness/xconnection.h"

#include <QByteArray>

#include <cstring>

namespace Bench {

QRgb PixelProbe::colourAt(QPoint point) const
{
    const auto cookie =
        xcb_get_image(x.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(), static_cast<int16_t>(point.x()),
                      static_cast<int16_t>(point.y()), 1, 1, ~0U);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(x.raw(), cookie, nullptr));
    if (!reply)
        throw Failure("the screen has no such pixel");
    QRgb colour = 0;
    std::memcpy(&colour, xcb_get_image_data(reply.get()), sizeof colour);
    return colour & RGB_MASK;
}

bool PixelProbe::isInk(QPoint point) const
{
    return Bench::isInk(colourAt(point));
}

bool PixelProbe::seesInk(QPoint point, Clock::duration limit) const
{
    const Clock::time_point end = Clock::now() + limit;
    while (Clock::now() < end) {
        if (isInk(point))
            return true;
    }
    return false;
}

Clock::time_point PixelProbe::waitForInk(QPoint point) const
{
    if (!seesInk(point, LongestWait))
        throw Failure("no ink at " + std::to_string(point.x()) + ", " + std::to_string(point.y()));
    return Clock::now();
}

Clock::time_point PixelProbe::waitForRest(QPoint point, Clock::duration restfulTime) const
{
    const Clock::time_point end = Clock::now() + LongestWait;
    QRgb colour = colourAt(point);
    Clock::time_point changed = Clock::now();
    while (Clock::now() < changed + restfulTime) {
        const QRgb now = colourAt(point);
        if (now != colour)
            changed = Clock::now();
        colour = now;
        if (changed > end)
            throw Failure("the screen does not come to rest");
    }
    return changed;
}

}
