#pragma once

#include "os/sharedmemory.h"

#include <xcb/shm.h>

namespace osUtils::X11 {

/// Shared memory as a server's requests name it, over whatever connection. It is asked for on construction, and given
/// up with the object or the connection, once the server has done what it was asked for before.
class SharedSegment {
public:
    SharedSegment(xcb_connection_t* server, const System::SharedMemory& memory);
    SharedSegment(const SharedSegment&) = delete;
    SharedSegment& operator=(const SharedSegment&) = delete;
    ~SharedSegment();

    /// Whether the server has taken the memory. Waits for its answer if that has not come; to be asked once.
    [[nodiscard]] bool isTaken() const;
    [[nodiscard]] const xcb_shm_seg_t& id() const { return segment; }

private:
    xcb_connection_t* server;
    xcb_shm_seg_t segment = XCB_NONE;
    xcb_void_cookie_t request{};
};

}
