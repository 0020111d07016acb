#pragma once

#include "windowsystem/screencapture.h"

#include <QLoggingCategory>
#include <QObject>
#include <QRegion>
#include <QWindow>

#include <memory>
#include <optional>

namespace Windowing {

/// What a report of an odd desktop needs: "korvel.windowsystem", silent unless it is asked for.
Q_DECLARE_LOGGING_CATEGORY(windowSystemLog)

/// What an overlay needs of the window system and Qt does not offer. One object serves the session; all that differs
/// between window systems lies behind it.
///
/// Windows passed in have their native window. Nothing is reported: where a window system has no such property,
/// a request is without effect. GUI thread only.
class WindowSystem : public QObject {
    Q_OBJECT

public:
    /// The one of the platform that Qt runs on, a child of the application object; made when first asked for.
    /// Without an application object that has windows, one without effect.
    [[nodiscard]] static WindowSystem& ofSession();
    /// Has ofSession() yield another one, which takes the place of the first as the application's child. For tests.
    static void replace(std::unique_ptr<WindowSystem> other);

    // Screens
    /// Index among QGuiApplication::screens() of the one that holds the pointer.
    [[nodiscard]] virtual int pointerScreen() const;
    /// The place of a screen in device pixels; without a value where it is not told.
    [[nodiscard]] virtual std::optional<QRect> deviceGeometry(const QScreen& screen) const = 0;
    /// The geometry that a window needs to cover the screen to the pixel, in Qt's coordinates. Qt rounds a screen's
    /// size to whole logical pixels, which at a fractional ratio can end short of its edge, or beyond it.
    [[nodiscard]] QRect coveringGeometry(const QScreen& screen) const;
    [[nodiscard]] virtual std::unique_ptr<ScreenCapture> capture(QScreen& screen) const = 0;

    // Overlays: frameless stay-on-top windows
    /// Whether overlays cover the desktop's interface (panels, docks), from now on and for those that exist.
    void setCovering(bool covering);
    /// Whether this window is to cover the desktop's interface at present.
    [[nodiscard]] bool isCovered(const QWindow& window) const;
    /// Has an overlay come up above the desktop's interface. To be called before it is mapped.
    virtual void bringUp(QWindow& overlay) = 0;
    /// Puts one that is shown above the desktop's interface, and keeps it where it is and as large.
    /// @param size  in logical pixels, which Qt may not have given the window if its tool has just asked for it
    virtual void present(QWindow& overlay, QSize size) = 0;
    /// Gives the desktop its interface back, above the overlay.
    virtual void release(QWindow& overlay) = 0;
    /// Has an overlay be where it was presented. To be called when it is exposed for the first time after it was
    /// mapped, the window manager having put its frames around it.
    virtual void settle(QWindow& overlay) = 0;

    // Any window
    virtual void setShadow(const QWindow& window, bool shadow) const = 0;
    /// @param region  where the mouse is caught, in device pixels and window coordinates; none means everywhere
    virtual void setInputRegion(const QWindow& window,
                                const std::optional<QRegion>& region) const = 0;
    virtual void setOpaque(const QWindow& window, bool opaque) const = 0;
    virtual void raiseAboveAll(QWindow& window) const = 0;
    /// Gives the keyboard to a window that is shown.
    virtual void takeKeyboard(QWindow& window) const = 0;
    /// Gives it back to the program that it was taken from when an overlay was presented, if this one still has it.
    /// To be called before the overlay is hidden: a window manager that finds the keyboard elsewhere by then gives
    /// it to nobody else.
    virtual void giveKeyboardBack() const = 0;
    /// Has the window system tell of each move and click once, where it tells of the devices behind a pointer as
    /// well.
    virtual void reportPointerOnce(const QWindow& window) const = 0;
    /// Where a cursor's hot spot has to be told to Qt, in pixels.
    /// @param hotSpot  in the image's logical pixels      @param ratio  the image's device pixel ratio
    [[nodiscard]] virtual QPoint cursorHotSpot(QPoint hotSpot, qreal ratio) const = 0;

    /// Whether the desktop's compositor runs, without which a translucent window is black where nothing is painted.
    [[nodiscard]] virtual bool hasCompositor() const = 0;

signals:
    /// Told only to who has asked hasCompositor() before.
    void compositorEnded();

protected:
    /// For a dialog of an overlay that is about to be mapped: has it lie above the overlay.
    virtual void presentDialog(QWindow& dialog) const = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool covering = false;
};

}
