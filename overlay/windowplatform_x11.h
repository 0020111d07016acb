#pragma once

#include "overlay/windowplatform.h"

namespace Helpers::NQt {

/// X11, with or without window manager and compositor.
class WindowPlatformX11 : public WindowPlatform {
public:
    void setShadow(const QWindow& window, bool shadow) const override;
    void setInputRegion(const QWindow& window, const std::optional<QRegion>& region) const override;
    void setOpaque(const QWindow& window, bool opaque) const override;
    void raiseAboveAll(QWindow& window) const override;
    void takeKeyboard(QWindow& window) const override;
    void reportPointerOnce(const QWindow& window) const override;
    void sendRequests() const override;
    [[nodiscard]] bool showPixels(const QWindow& window,
                                  const osUtils::System::SharedPixels& pixels,
                                  const QRegion& region) const override;
};

}
