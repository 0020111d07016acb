#include "os/x11/x11monitors.h"

#include "os/x11/connection.h"
#include "os/x11/replypointer.h"

#include <xcb/randr.h>

namespace osUtils::X11 {

QList<QRect> monitors()
{
    // A request to an extension that is not there would close the connection.
    if (!xcb_get_extension_data(connection(), &xcb_randr_id)->present)
        return {};
    constexpr uint8_t onlyThoseInUse = 1;
    const auto cookie = xcb_randr_get_monitors(connection(), rootWindow(), onlyThoseInUse);
    const ReplyPointer<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(connection(), cookie, nullptr));
    if (!reply)
        return {};
    QList<QRect> places;
    for (auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitor.rem;
         xcb_randr_monitor_info_next(&monitor)) {
        const xcb_randr_monitor_info_t& info = *monitor.data;
        places.append({info.x, info.y, info.width, info.height});
    }
    return places;
}

}
