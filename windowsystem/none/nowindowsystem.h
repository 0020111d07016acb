#pragma once

#include "windowsystem/windowsystem.h"

namespace Windowing {

/// An unknown platform: does what Qt can do everywhere, and nothing else.
class NoWindowSystem : public WindowSystem {
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
};

}
