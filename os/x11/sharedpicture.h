#pragma once

#include "os/sharedpixels.h"
#include "os/x11/sharedsegment.h"

#include <QImage>
#include <QRect>

#include <memory>
#include <optional>

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

    /// Has the server write what the screen shows, from this place on, in device pixels.
    /// @return  false, too, where the server is not of this machine or has not enough memory
    [[nodiscard]] bool write(QPoint topLeft) const;
    [[nodiscard]] System::SharedPixels pixels() const { return {memory, size}; }
    /// What has been written, as rootPicture() would yield it: it lies in the same memory.
    [[nodiscard]] QImage picture() const;

private:
    xcb_connection_t* server;
    QSize size;
    std::shared_ptr<System::SharedMemory> memory;
    std::optional<SharedSegment> segment;
};

}
