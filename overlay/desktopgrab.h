#pragma once

#include "os/screenpicture.h"

#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QRect>
#include <QScreen>

#include <optional>
#include <vector>

namespace Helpers::NQt {

/// Picture of what the screens show, pixel for pixel, with the device pixel ratio of the screen that it
/// is to be shown on.
class DesktopGrab {
public:
    /// Of an area, put together from the screens that it touches; black where there is none.
    /// @param area  in logical desktop coordinates
    /// @param screen  the screen that the area begins on and that will show the picture
    [[nodiscard]] static DesktopGrab ofArea(const QRect& area, QScreen& screen);
    /// Of all screens, from the top-left corner of the rectangle around them.
    /// @param screen  the screen that will show the picture
    [[nodiscard]] static DesktopGrab ofDesktop(const QScreen& screen);

    /// Takes it, and returns while it is on its way.
    void begin();
    /// Begins if nobody has, and waits until a window may be shown that shall not be on it.
    void secure();
    /// The memory that the picture, if it is of one whole screen, has been written to, and that the one taken lies
    /// in. None until it is secured.
    [[nodiscard]] osUtils::System::SharedPixels pixels() const;
    /// What that memory holds, to paint from until the picture is completed. Null if there is none.
    [[nodiscard]] QImage draft() const;
    /// Has the picture completed, in the background. From here on nobody may use a draft of it.
    void complete();
    /// Waits for it, and completes it if nobody has. To be called once.
    /// @return  null where the window system refuses it
    [[nodiscard]] QPixmap take();

private:
    /// One screen's part of it.
    class ScreenGrab {
    public:
        explicit ScreenGrab(QScreen& screen);

        /// Its place on the desktop, in device pixels.
        [[nodiscard]] QPoint origin() const { return topLeft; }
        void begin();
        void secure();
        [[nodiscard]] osUtils::System::SharedPixels pixels() const { return direct.pixels(); }
        [[nodiscard]] QImage draft() const { return direct.draft(); }
        void complete() { direct.complete(); }
        /// To be secured before. With a device pixel ratio of 1.
        [[nodiscard]] QPixmap take();

    private:
        void grabIndirectly();

        QPointer<QScreen> screen;
        QPoint topLeft;
        osUtils::System::ScreenPicture direct;
        QPixmap indirect;
    };

    /// @param area  in device pixels; without a value as much as the screens take
    DesktopGrab(const QList<QScreen*>& screens, std::optional<QRect> area, qreal ratio);

    [[nodiscard]] bool isOneScreen() const { return parts.size() == 1 && !area; }

    std::vector<ScreenGrab> parts;
    std::optional<QRect> area;
    qreal ratio;
};

}
