#pragma once

#include "windowsystem/screencapture.h"

#include <QLoggingCategory>
#include <QObject>
#include <QRegion>
#include <QWindow>

#include <memory>
#include <optional>

namespace Windowing {

/// For bug reports from unknown desktops: "korvel.windowsystem", silent unless enabled.
Q_DECLARE_LOGGING_CATEGORY(windowSystemLog)

/// What an overlay needs from the window system that Qt does not offer. One object serves the
/// session and hides all differences between window systems.
///
/// Windows passed in have their native window. Errors are not reported: where a window system lacks
/// a property, the request has no effect. GUI thread only.
class WindowSystem : public QObject {
    Q_OBJECT

public:
    /// The object for the platform that Qt runs on, a child of the application object; created on
    /// first use. Without a QGuiApplication it is one that does nothing.
    [[nodiscard]] static WindowSystem& ofSession();
    /// Makes ofSession() return another object, which replaces the first as the application's
    /// child. For tests.
    static void replace(std::unique_ptr<WindowSystem> other);

    // Screens
    /// Index in QGuiApplication::screens() of the screen that holds the pointer.
    [[nodiscard]] virtual int pointerScreen() const;
    /// The place of a screen in device pixels; no value where the window system does not tell it.
    [[nodiscard]] virtual std::optional<QRect> deviceGeometry(const QScreen& screen) const = 0;
    /// The geometry that a window needs to cover the screen to the pixel, in Qt's coordinates. Qt
    /// rounds a screen's size to whole logical pixels, which at a fractional ratio can end short of
    /// its edge, or beyond it.
    [[nodiscard]] QRect coveringGeometry(const QScreen& screen) const;
    [[nodiscard]] virtual std::unique_ptr<ScreenCapture> capture(QScreen& screen) const = 0;

    // Overlays: frameless stay-on-top windows
    /// Whether overlays, existing and new ones, cover the desktop's interface (panels, docks).
    void setCovering(bool wanted);
    /// Whether this window is to cover the desktop's interface now.
    [[nodiscard]] bool isCovered(const QWindow& window) const;
    /// Makes an overlay come up above the desktop's interface. To be called before it is mapped.
    virtual void bringUp(QWindow& overlay) = 0;
    /// Puts a visible overlay above the desktop's interface, keeping its place and size.
    /// @param size  in logical pixels; Qt may not have resized the window yet if its tool has just
    ///              asked for it
    virtual void present(QWindow& overlay, QSize size) = 0;
    /// Gives the desktop its interface back, above the overlay.
    virtual void release(QWindow& overlay) = 0;
    /// Moves an overlay to where it was presented. To be called on its first exposure after it was
    /// mapped, when the window manager has put its frames around it.
    virtual void settle(QWindow& overlay) = 0;

    // Any window
    virtual void setShadow(const QWindow& window, bool shadow) const = 0;
    /// @param region  where the mouse is caught, in device pixels and window coordinates; no value
    ///                means everywhere
    virtual void setInputRegion(const QWindow& window,
                                const std::optional<QRegion>& region) const = 0;
    virtual void setOpaque(const QWindow& window, bool opaque) const = 0;
    virtual void raiseAboveAll(QWindow& window) const = 0;
    /// Gives the keyboard to a window that is shown.
    virtual void takeKeyboard(QWindow& window) const = 0;
    /// Gives the keyboard back to the program that had it before an overlay was presented, if an
    /// overlay still has it. To be called before the overlay is hidden: a window manager that then
    /// finds the keyboard elsewhere does not give it to anyone else.
    virtual void giveKeyboardBack() const = 0;
    /// Makes the window system report each move and click once, where it would also report those of
    /// the devices behind the pointer.
    virtual void reportPointerOnce(const QWindow& window) const = 0;
    /// The hot spot to give Qt for a cursor, in pixels.
    /// @param hotSpot  in the image's logical pixels
    /// @param ratio  the image's device pixel ratio
    [[nodiscard]] virtual QPoint cursorHotSpot(QPoint hotSpot, qreal ratio) const = 0;

    /// Whether a compositor is running. Without one a translucent window is black where nothing is
    /// painted.
    [[nodiscard]] virtual bool hasCompositor() const = 0;

signals:
    /// Emitted only after hasCompositor() has been called.
    void compositorEnded();

protected:
    /// Puts a dialog of an overlay, which is about to be mapped, above the overlay.
    virtual void presentDialog(QWindow& dialog) const = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool covering = false;
};

}
