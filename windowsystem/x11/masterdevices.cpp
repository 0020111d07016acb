#include "windowsystem/x11/masterdevices.h"

#include "windowsystem/x11/connection.h"

#include <QList>

#include <xcb/xinput.h>

#include <cstring>

namespace Windowing::X11 {

namespace {

using EventMask = QList<uint32_t>;

bool hasInputExtension()
{
    const auto* extension = xcb_get_extension_data(connection(), &xcb_input_id);
    return extension && extension->present;
}

/// The events that this client selects on all devices.
EventMask eventsOfAllDevices(xcb_window_t window)
{
    const auto cookie = xcb_input_xi_get_selected_events(connection(), window);
    const auto reply = replyTo(xcb_input_xi_get_selected_events_reply, connection(), cookie);
    if (!reply)
        return {};
    auto selection = xcb_input_xi_get_selected_events_masks_iterator(reply.get());
    for (; selection.rem; xcb_input_event_mask_next(&selection)) {
        const uint32_t* events = xcb_input_event_mask_mask(selection.data);
        if (selection.data->deviceid == XCB_INPUT_DEVICE_ALL)
            return {events, events + xcb_input_event_mask_mask_length(selection.data)};
    }
    return {};
}

/// Appends a selection in the request's format: device and length in four bytes, then the events.
void add(QList<uint32_t>& selections, xcb_input_device_id_t device, const EventMask& events)
{
    const xcb_input_event_mask_t header{device, static_cast<uint16_t>(events.size())};
    uint32_t encoded = 0;
    static_assert(sizeof header == sizeof encoded);
    std::memcpy(&encoded, &header, sizeof header);
    selections += encoded;
    selections += events;
}

}

void hearMasterDevicesOnly(WId id)
{
    const auto window = static_cast<xcb_window_t>(id);
    if (!hasInputExtension())
        return;
    const EventMask events = eventsOfAllDevices(window);
    if (events.empty())
        return;
    QList<uint32_t> selections;
    add(selections, XCB_INPUT_DEVICE_ALL_MASTER, events);
    add(selections, XCB_INPUT_DEVICE_ALL, EventMask(events.size()));

    constexpr uint16_t count = 2;
    const auto cookie = xcb_input_xi_select_events_checked(
        connection(), window, count,
        reinterpret_cast<const xcb_input_event_mask_t*>(selections.data()));
    // Qt would report the error if the window is gone.
    xcb_discard_reply(connection(), cookie.sequence);
    xcb_flush(connection());
}

}
