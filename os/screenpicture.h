#pragma once

#include "os/sharedpixels.h"

#include <QImage>
#include <QRect>

#include <future>
#include <optional>

class QScreen;

namespace osUtils::System {

/// What a screen shows, pixel for pixel and without copies on the way. It is fetched in the background, since a
/// large screen's takes as long as all else that a tool does at its start. From construction on its memory is
/// made ready, which does not keep the window system busy.
class ScreenPicture {
public:
    explicit ScreenPicture(const QScreen& screen);

    /// False where the window system has no such way; the toolkit's grab may know another.
    [[nodiscard]] bool isPossible() const { return place.has_value(); }
    /// Takes it. Meanwhile the window system answers nobody: whoever asks it something waits.
    void begin();
    /// Begins if nobody has, and waits until the screen may show something new that shall not be on it. The
    /// picture itself may take longer.
    /// @return  false if there will be none
    bool secure();
    /// The memory that the window system has written the picture to, and that the one taken lies in. None
    /// until it is secured, nor if it comes another way.
    [[nodiscard]] const SharedPixels& pixels() const { return shared; }
    /// Waits for it, and secures it if nobody has. To be called once.
    /// @return  null if it has failed
    [[nodiscard]] QImage take();

private:
    /// Fetched anew if that in the background has come to nothing.
    QImage finish();

    std::optional<QRect> place; // in device pixels
    std::future<QImage> picture;
    std::optional<QImage> finished;
    std::future<SharedPixels> written;
    SharedPixels shared;
    // Gone before the picture, which waits for it.
    std::optional<std::promise<void>> release;
};

}
