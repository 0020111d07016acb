#include "windowsystem/none/nowindowsystem.h"

namespace Windowing {

std::optional<QRect> NoWindowSystem::deviceGeometry(const QScreen& /*screen*/) const
{
    return std::nullopt;
}

std::unique_ptr<ScreenCapture> NoWindowSystem::capture(QScreen& screen) const
{
    return std::make_unique<ScreenCapture>(screen);
}

void NoWindowSystem::bringUp(QWindow& /*overlay*/) { }

void NoWindowSystem::present(QWindow& /*overlay*/, QSize /*size*/) { }

void NoWindowSystem::release(QWindow& /*overlay*/) { }

void NoWindowSystem::settle(QWindow& /*overlay*/) { }

void NoWindowSystem::setShadow(const QWindow& /*window*/, bool /*shadow*/) const { }

void NoWindowSystem::setInputRegion(const QWindow& /*window*/,
                                    const std::optional<QRegion>& /*region*/) const
{
}

void NoWindowSystem::setOpaque(const QWindow& /*window*/, bool /*opaque*/) const { }

void NoWindowSystem::raiseAboveAll(QWindow& /*window*/) const { }

void NoWindowSystem::takeKeyboard(QWindow& window) const
{
    window.requestActivate();
}

void NoWindowSystem::giveKeyboardBack() const { }

void NoWindowSystem::reportPointerOnce(const QWindow& /*window*/) const { }

QPoint NoWindowSystem::cursorHotSpot(QPoint hotSpot, qreal /*ratio*/) const
{
    return hotSpot;
}

bool NoWindowSystem::hasCompositor() const
{
    return true;
}

void NoWindowSystem::presentDialog(QWindow& /*dialog*/) const { }

}
