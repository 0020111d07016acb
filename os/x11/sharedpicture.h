#pragma once

#include "os/sharedmemory.h"

#include <QImage>
#include <QRect>

#include <xcb/shm.h>

#include <memory>

namespace osUtils::X11 {

/// A picture of a server's screen in memory that the server writes to itself: it spares the way through the
/// connection, which takes a large picture as long as all the rest. Most of the time goes into the memory,
/// which can be there before the picture is wanted.
class SharedPicture {
public:
    /// Has the memory set aside, with the server's leave, which is asked for over this connection. It is of no
    /// further use where a proxy in between loses the memory.
    /// @param size  in device pixels
    SharedPicture(xcb_connection_t* server, QSize size);

    /// The picture, as rootPicture() would yield it. To be taken once.
    /// @return  null, too, where the server is not of this machine or has not enough memory
    [[nodiscard]] QImage take(QPoint topLeft);

private:
    [[nodiscard]] bool attach();
    [[nodiscard]] bool write(QPoint topLeft) const;

    xcb_connection_t* server;
    QSize size;
    std::unique_ptr<System::SharedMemory> memory;
    xcb_shm_seg_t segment = XCB_NONE;
};

}
