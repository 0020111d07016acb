#pragma once

#include <QImage>
#include <QPointer>
#include <QScreen>

class QRegion;
class QWindow;

namespace Windowing {

/// What one screen shows, pixel for pixel. This one is Qt's own grab, which is there at once; a window system
/// that knows a faster way takes the picture while the program does something else.
class ScreenCapture {
public:
    explicit ScreenCapture(QScreen& screen);
    ScreenCapture(const ScreenCapture&) = delete;
    ScreenCapture& operator=(const ScreenCapture&) = delete;
    virtual ~ScreenCapture() = default;

    /// The screen's place on the desktop, in device pixels.
    [[nodiscard]] QPoint origin() const { return topLeft; }

    /// Has the picture taken, and returns while it is on its way.
    virtual void begin();
    /// Begins if nobody has, and waits until the screen may show something new that shall not be on it.
    virtual void secure();
    /// The picture, with a device pixel ratio of 1; null if the window system refuses it. To be secured before.
    [[nodiscard]] virtual QImage image();

    /// The picture as it can be painted on an opaque window before it is complete: the byte that no colour uses
    /// may be anything. Saves a tenth of the start at 4K (9 ms) and a sixth at 8K (17 ms). Null where image() is as
    /// fast.
    [[nodiscard]] virtual QImage draft() const { return {}; }
    /// Completes the picture in the background; nobody may use a draft from here on.
    virtual void complete() { }

    /// Has the window system copy a part of the picture to a window by itself, where it lies in memory that both
    /// can read.
    /// @param picture  what shall be shown, which need not be the captured one any more; null for that
    /// @param region  in device pixels of the window
    /// @return  false if it cannot, and nothing is copied
    [[nodiscard]] virtual bool show(const QImage& picture, const QWindow& window,
                                    const QRegion& region) const;

private:
    QPointer<QScreen> screen;
    QPoint topLeft;
    QImage grabbed;
};

}
