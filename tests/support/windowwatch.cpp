#include "tests/support/windowwatch.h"

#include "tests/support/windowprobe.h"

namespace {

using Event = Reply<xcb_generic_event_t>;

// Set in the type of events that another client has sent.
constexpr uint8_t sentBit = 0x80;

uint8_t typeOf(const xcb_generic_event_t& event)
{
    return event.response_type & static_cast<uint8_t>(~sentBit);
}

void select(const XConnection& x, xcb_window_t window, uint32_t mask)
{
    xcb_change_window_attributes(x.raw(), window, XCB_CW_EVENT_MASK, &mask);
    x.synchronise();
}

QByteArray nameOf(const XConnection& x, xcb_atom_t atom)
{
    const Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(x.raw(), xcb_get_atom_name(x.raw(), atom), nullptr));
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())};
}

}

WindowWatch::WindowWatch(xcb_window_t window)
    : x(qgetenv("DISPLAY"))
{
    finishQtRequests();
    select(x, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
}

QByteArrayList WindowWatch::events()
{
    finishQtRequests();
    x.synchronise();
    while (const Event event{xcb_poll_for_event(x.raw())})
        seen.append(describe(*event));
    return seen;
}

QByteArray WindowWatch::describe(const xcb_generic_event_t& event) const
{
    switch (typeOf(event)) {
    case XCB_MAP_NOTIFY:
        return "mapped";
    case XCB_UNMAP_NOTIFY:
        return "unmapped";
    case XCB_CONFIGURE_NOTIFY:
        return "configured";
    case XCB_PROPERTY_NOTIFY:
        return nameOf(x, reinterpret_cast<const xcb_property_notify_event_t&>(event).atom);
    default:
        return "other";
    }
}

StateRequestWatch::StateRequestWatch()
    : x(qgetenv("DISPLAY"))
{
    finishQtRequests();
    select(x, x.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

QList<StateRequest> StateRequestWatch::requests()
{
    finishQtRequests();
    x.synchronise();
    while (const Event event{xcb_poll_for_event(x.raw())}) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        if (typeOf(*event) == XCB_CLIENT_MESSAGE && message.type == x.atom("_NET_WM_STATE"))
            seen.append(request(message));
    }
    return seen;
}

StateRequest StateRequestWatch::request(const xcb_client_message_event_t& message) const
{
    StateRequest result{message.window, message.data.data32[0], {}, message.data.data32[3]};
    for (const int position : {1, 2}) {
        if (message.data.data32[position] != XCB_ATOM_NONE)
            result.states.append(nameOf(x, message.data.data32[position]));
    }
    return result;
}
