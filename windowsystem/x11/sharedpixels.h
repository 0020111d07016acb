#pragma once

#include "windowsystem/filedescriptor.h"

#include <QImage>

#include <memory>

#include <xcb/shm.h>

namespace Windowing::X11 {

/// Pixels in memory that the program and the X server share, row by row, in the layout of Qt's
/// 32-bit images. Saves the way through the connection, which takes as long for a large picture as
/// all the rest of a start.
class SharedPixels : public std::enable_shared_from_this<SharedPixels> {
public:
    /// Null where the server runs on another machine, has no shared memory, or uses another pixel
    /// layout.
    /// @param size  in pixels
    [[nodiscard]] static std::shared_ptr<SharedPixels> offered(QSize size);
    SharedPixels(const SharedPixels&) = delete;
    SharedPixels& operator=(const SharedPixels&) = delete;
    ~SharedPixels();

    /// Allocates the memory's pages; otherwise the server would wait for each page when it writes.
    /// Takes a while, and may be called on any thread.
    /// @return  false if there is not enough
    [[nodiscard]] bool reserve() const;
    /// Whether the server has attached the memory. Waits for its answer if necessary; to be called
    /// once.
    [[nodiscard]] bool isTaken() const;
    [[nodiscard]] xcb_shm_seg_t segment() const { return number; }
    [[nodiscard]] QSize size() const { return extent; }

    /// Sets the byte of each pixel that holds no colour and that the server leaves undefined: Qt
    /// reads it as the opacity. Takes a while, and may be called on any thread.
    void makeOpaque();
    /// An image of the pixels without a copy; the memory stays as long as the image is used.
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

/// Whether the server that Qt runs on lays out its screen's pixels as Qt lays out 32-bit images.
[[nodiscard]] bool hasQtPixels();

/// The depth of a screen with such pixels.
constexpr uint8_t qtDepth = 24;

/// Sets the unused byte of pixels in Format_RGB32, which the server leaves undefined.
void makeOpaque(void* pixels, QSize size);

}
