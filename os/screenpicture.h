#pragma once

#include <QImage>
#include <QRect>

#include <future>
#include <optional>

class QScreen;

namespace osUtils::System {

/// What a screen shows, pixel for pixel and without copies on the way. It is fetched in the background
/// from construction on, since a large screen's takes as long as all else that a tool does at its start.
class ScreenPicture {
public:
    explicit ScreenPicture(const QScreen& screen);

    /// False where the window system has no such way; the toolkit's grab may know another.
    [[nodiscard]] bool isOnItsWay() const { return place.has_value(); }
    /// Waits for it. To be taken once, before the screen shows something new that shall not be on it.
    /// @return  null if it has failed
    [[nodiscard]] QImage take();

private:
    std::optional<QRect> place; // in device pixels
    std::future<QImage> picture;
};

}
