#pragma once

#include <QImage>
#include <QPointer>
#include <QScreen>

class QRegion;
class QWindow;

namespace Windowing {

/// What one screen shows, pixel for pixel. This class is Qt's own grab, which returns at once; a
/// window system with a faster way takes the picture while the program does something else.
class ScreenCapture {
public:
    explicit ScreenCapture(QScreen& captured);
    ScreenCapture(const ScreenCapture&) = delete;
    ScreenCapture& operator=(const ScreenCapture&) = delete;
    virtual ~ScreenCapture() = default;

    /// The screen's place on the desktop, in device pixels.
    [[nodiscard]] QPoint origin() const { return topLeft; }

    /// Starts taking the picture and returns without waiting for it.
    virtual void begin();
    /// Begins if that has not been done, and waits until new windows on the screen can no longer
    /// get into the picture.
    virtual void secure();
    /// The picture, with a device pixel ratio of 1; null if the window system refuses it. To be
    /// called after secure().
    [[nodiscard]] virtual QImage image();

    /// The picture before it is complete, fit to be painted on an opaque window: the byte of each
    /// pixel that holds no colour may be anything. Saves a tenth of the start at 4K (9 ms) and a
    /// sixth at 8K (17 ms). Null where image() is as fast.
    [[nodiscard]] virtual QImage draft() const { return {}; }
    /// Completes the picture in the background; drafts must not be used from here on.
    virtual void complete() { }

    /// Lets the window system itself copy a part of the picture to a window, if the picture lies in
    /// memory that both can read.
    /// @param picture  what to show, which may no longer be the captured picture; null for the
    ///                 latter
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
