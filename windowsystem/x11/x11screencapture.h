#pragma once

#include "windowsystem/screencapture.h"
#include "windowsystem/x11/sharedpixels.h"

#include <QRect>

#include <future>
#include <memory>
#include <optional>

namespace Windowing::X11 {

/// The X server writes the picture to memory that it shares with the program, while the program
/// goes on starting. Where that is impossible the picture comes through the connection, and where
/// the server's pixel layout is not Qt's, by Qt.
///
/// The constructor starts preparing the memory, which does not keep the server busy. After begin()
/// the server answers no requests until the picture is written.
class X11ScreenCapture : public ScreenCapture {
public:
    /// @param screenPlace  the screen's, in device pixels
    X11ScreenCapture(QScreen& captured, const QRect& screenPlace);

    void begin() override;
    void secure() override;
    [[nodiscard]] QImage image() override;
    [[nodiscard]] QImage draft() const override;
    void complete() override;
    [[nodiscard]] bool show(const QImage& picture, const QWindow& window,
                            const QRegion& region) const override;

private:
    using Request = std::optional<xcb_shm_get_image_cookie_t>;

    [[nodiscard]] bool hasWritten();
    [[nodiscard]] QImage copied() const;

    enum class State { Prepared, Begun, Written, Copied, Refused };

    QRect place;
    State state = State::Prepared;
    /// Null unless the server can write to it.
    std::shared_ptr<SharedPixels> pixels;
    std::shared_future<bool> reserved;
    std::future<Request> request;
    std::future<void> completion;
    QImage copy;
};

}
