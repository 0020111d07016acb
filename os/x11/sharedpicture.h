#pragma once

#include "os/sharedpixels.h"
#include "os/x11/sharedsegment.h"

#include <QImage>
#include <QRect>

#include <memory>

namespace osUtils::X11 {

/// A picture of a server's screen in memory that the server writes to itself: it spares the way through the
/// connection, which takes a large picture as long as all the rest. Most of the time goes into the memory,
/// which can be there before the picture is wanted.
class SharedPicture {
public:
    /// Offers the server the memory over this connection, which it then belongs to.
    /// @param size  in device pixels
    SharedPicture(xcb_connection_t* server, QSize size);

    /// Whether the server has taken the memory, which one that is not of this machine does not. Waits for its answer
    /// if that has not come; to be asked once, and before it shall write.
    [[nodiscard]] bool isTaken() const;
    /// Has the memory set aside; false if there is not enough. To be done before the server shall write, and by
    /// another thread than those that are in a hurry.
    [[nodiscard]] bool reserve() const;
    /// Has the server write what the screen shows.
    /// @param over  any connection to it: until the picture is written it answers nothing else there
    /// @param topLeft  the place on the screen, in device pixels
    /// @return  false where there is no such place
    [[nodiscard]] bool write(xcb_connection_t* over, QPoint topLeft) const;

    [[nodiscard]] System::SharedPixels pixels() const;
    /// What has been written, in the same memory, to paint from: the byte that no colour uses is anything.
    [[nodiscard]] QImage draft() const;
    /// Sets that byte, and all is as rootPicture() would yield it. Nobody may use a draft meanwhile.
    [[nodiscard]] QImage picture() const;

private:
    QSize size;
    std::shared_ptr<System::SharedMemory> memory;
    std::shared_ptr<const SharedSegment> segment;
};

}
