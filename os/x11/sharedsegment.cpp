#include "os/x11/sharedsegment.h"

#include "os/x11/replypointer.h"

#include <unistd.h>

namespace osUtils::X11 {

SharedSegment::SharedSegment(xcb_connection_t* theServer, const System::SharedMemory& memory)
    : server(theServer)
{
    // The library closes what it has sent.
    const int descriptor = dup(memory.file().number());
    if (descriptor < 0)
        return;
    constexpr uint8_t writable = 0;
    segment = xcb_generate_id(server);
    request = xcb_shm_attach_fd_checked(server, segment, descriptor, writable);
}

SharedSegment::~SharedSegment()
{
    if (segment != XCB_NONE)
        xcb_discard_reply(server, xcb_shm_detach_checked(server, segment).sequence);
}

bool SharedSegment::isTaken() const
{
    return segment != XCB_NONE
        && !ReplyPointer<xcb_generic_error_t>(xcb_request_check(server, request));
}

}
