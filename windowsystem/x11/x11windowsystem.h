#pragma once

#include "windowsystem/windowsystem.h"
#include "windowsystem/x11/selectionwatch.h"

#include <QRect>

#include <map>
#include <memory>

namespace Windowing::X11 {

/// X11, with or without a window manager and a compositor.
class X11WindowSystem : public WindowSystem {
public:
    [[nodiscard]] std::optional<QRect> deviceGeometry(const QScreen& screen) const override;
    [[nodiscard]] std::unique_ptr<ScreenCapture> capture(QScreen& screen) const override;
    void bringUp(QWindow& overlay) override;
    void present(QWindow& overlay, QSize size) override;
    void release(QWindow& overlay) override;
    void settle(QWindow& overlay) override;
    void setShadow(const QWindow& window, bool shadow) const override;
    void setInputRegion(const QWindow& window, const std::optional<QRegion>& region) const override;
    void setOpaque(const QWindow& window, bool opaque) const override;
    void raiseAboveAll(QWindow& window) const override;
    void takeKeyboard(QWindow& window) const override;
    void giveKeyboardBack() const override;
    void reportPointerOnce(const QWindow& window) const override;
    [[nodiscard]] QPoint cursorHotSpot(QPoint hotSpot, qreal ratio) const override;
    [[nodiscard]] bool hasCompositor() const override;

protected:
    void presentDialog(QWindow& dialog) const override;

private:
    void present(QWindow& overlay, QSize size, const QByteArray& windowManager);
    [[nodiscard]] const QScreen* coveredScreen(const QWindow& window) const;
    void fitExactly(QWindow& window, const QRect& place) const;
    void rememberKeyboard();

    /// The window of another program that had the keyboard before an overlay took it; 0 if none
    /// had.
    WId keyboardLender = 0;
    /// Where overlays that have not settled yet belong, in logical pixels.
    std::map<const QWindow*, QRect> places;
    /// Made when first asked for.
    mutable std::unique_ptr<SelectionWatch> compositor;
};

}
