#include "overlay/windowplatform_none.h"

#include <QWindow>

namespace Helpers::NQt {

void WindowPlatformNone::setShadow(const QWindow& /*window*/, bool /*shadow*/) const { }

void WindowPlatformNone::setInputRegion(const QWindow& /*window*/,
                                        const std::optional<QRegion>& /*region*/) const
{
}

void WindowPlatformNone::setOpaque(const QWindow& /*window*/, bool /*opaque*/) const { }

void WindowPlatformNone::raiseAboveAll(QWindow& /*window*/) const { }

void WindowPlatformNone::takeKeyboard(QWindow& window) const
{
    window.requestActivate();
}

void WindowPlatformNone::reportPointerOnce(const QWindow& /*window*/) const { }

void WindowPlatformNone::sendRequests() const { }

bool WindowPlatformNone::showPixels(const QWindow& /*window*/,
                                    const osUtils::System::SharedPixels& /*pixels*/,
                                    const QRegion& /*region*/) const
{
    return false;
}

}
