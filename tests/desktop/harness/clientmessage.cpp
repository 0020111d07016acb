#include "tests/desktop/harness/clientmessage.h"

#include "tests/desktop/harness/xconnection.h"

#include <algorithm>

namespace {

void send(const XConnection& x, xcb_window_t receiver, uint32_t eventMask,
          xcb_client_message_event_t message, const QList<uint32_t>& data)
{
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(x.raw(), 0, receiver, eventMask, reinterpret_cast<const char*>(&message));
    x.synchronise();
}

xcb_client_message_event_t about(const XConnection& x, xcb_window_t window, const char* type)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = x.atom(type);
    return message;
}

}

void askWindowManager(const XConnection& x, xcb_window_t window, const char* type,
                      const QList<uint32_t>& data)
{
    send(x, x.root(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
         about(x, window, type), data);
}

void askWindow(const XConnection& x, xcb_window_t window, const char* type,
               const QList<uint32_t>& data)
{
    send(x, window, XCB_EVENT_MASK_NO_EVENT, about(x, window, type), data);
}
