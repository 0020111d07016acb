#pragma once

#include "os/sharedpixels.h"
#include "os/x11/ownconnection.h"

#include <QImage>
#include <QRect>

#include <future>
#include <memory>
#include <optional>

class QScreen;

namespace osUtils::X11 {
class SharedPicture;
}

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
    [[nodiscard]] SharedPixels pixels() const;
    /// What has been written there, to paint from at once until it is completed: the byte that no colour uses is
    /// anything. Null if there is none.
    [[nodiscard]] QImage draft() const;
    /// Has the picture completed, in the background. From here on nobody may use a draft of it.
    void complete();
    /// Waits for it, and completes it if nobody has. To be called once.
    /// @return  null if it has failed
    [[nodiscard]] QImage take();

private:
    /// How the picture comes.
    enum class Way { SharedMemory, Connection };

    static QImage fetch(X11::OwnConnection own, const QRect& place,
                        const X11::SharedPicture& shared, std::future<Way> release,
                        std::promise<void> written, std::future<void> completion);
    /// Fetched anew if that in the background has come to nothing.
    QImage finish();

    std::optional<QRect> place; // in device pixels
    std::shared_ptr<const X11::SharedPicture> shared;
    std::future<QImage> picture;
    std::optional<QImage> finished;
    std::future<void> written;
    bool isWritten = false;
    // Gone before the picture, which waits for them.
    std::optional<std::promise<Way>> release;
    std::optional<std::promise<void>> completion;
};

}
