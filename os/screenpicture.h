#pragma once

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
    /// Waits for it, and begins if nobody has. To be called once, before the screen shows something new that
    /// shall not be on it.
    /// @return  null if it has failed
    [[nodiscard]] QImage take();

private:
    std::optional<QRect> place; // in device pixels
    std::future<QImage> picture;
    // Gone before the picture, which waits for it.
    std::optional<std::promise<void>> release;
};

}
