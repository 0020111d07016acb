#pragma once

#include "windowsystem/filedescriptor.h"

#include <QImage>

#include <memory>

#include <xcb/shm.h>

namespace Windowing::X11 {

/// Pixels in memory that the program and the X server share, row by row, laid out as Qt's of 32 bits. It spares
/// the way through the connection, which takes a large picture as long as all the rest of a start.
class SharedPixels : public std::enable_shared_from_this<SharedPixels> {
public:
    /// Null where the server is not of this machine, has no shared memory, or other pixels.
    /// @param size  in pixels
    [[nodiscard]] static std::shared_ptr<SharedPixels> offered(QSize size);
    SharedPixels(const SharedPixels&) = delete;
    SharedPixels& operator=(const SharedPixels&) = delete;
    ~SharedPixels();

    /// Has the system set the memory aside: else the server would wait for each page when it writes. Takes a
    /// while, and may be called by any thread.
    /// @return  false if there is not enough
    [[nodiscard]] bool reserve() const;
    /// Whether the server has taken the memory. Waits for its answer if that has not come; to be asked once.
    [[nodiscard]] bool isTaken() const;
    [[nodiscard]] xcb_shm_seg_t segment() const { return number; }
    [[nodiscard]] QSize size() const { return extent; }

    /// Sets the byte of each pixel that no colour uses and the server leaves open: to Qt it is the opacity. Takes
    /// a while, and may be called by any thread.
    void makeOpaque();
    /// The pixels where they lie, which stay there as long as the picture is used.
    [[nodiscard]] QImage picture();
    [[nodiscard]] const void* bytes() const { return memory; }

private:
    explicit SharedPixels(QSize size);
    [[nodiscard]] size_t byteCount() const;

    QSize extent;
    osUtils::FileDescriptor file;
    void* memory = nullptr;
    xcb_shm_seg_t number = XCB_NONE;
    xcb_void_cookie_t attaching{};
};

/// Whether Qt's server lays its screen's pixels out as Qt does those of 32 bits.
[[nodiscard]] bool hasQtPixels();

/// The depth of a screen with such pixels.
constexpr uint8_t qtDepth = 24;

/// The pixels of Format_RGB32 in a server's order: sets what it leaves open.
void makeOpaque(void* pixels, QSize size);

}
