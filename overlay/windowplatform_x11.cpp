#include "overlay/windowplatform_x11.h"

#include "os/windowlayer.h"
#include "os/x11/atoms.h"
#include "os/x11/connection.h"
#include "os/x11/masterdevices.h"
#include "os/x11/shownpixels.h"
#include "os/x11/x11window.h"

#include <QWindow>
#include <QtMath>

namespace Helpers::NQt {

namespace X11 = osUtils::X11;

void WindowPlatformX11::setShadow(const QWindow& window, bool shadow) const
{
    const WId id = window.winId();
    if (shadow)
        X11::deleteProperty(id, X11::frameExtents);
    else
        X11::setCardinals(id, X11::frameExtents, {0, 0, 0, 0});

    for (const WId level : X11::windowAndFrames(id)) {
        if (shadow)
            X11::deleteProperty(level, X11::picomShadow);
        else
            X11::setCardinals(level, X11::picomShadow, {0});
    }
}

void WindowPlatformX11::setInputRegion(const QWindow& window,
                                       const std::optional<QRegion>& region) const
{
    // The frames as well: in fluxbox they catch the clicks that the window lets through. They are of
    // the same size, the window being frameless.
    for (const WId level : X11::windowAndFrames(window.winId()))
        X11::setInputShape(level, region);
}

void WindowPlatformX11::setOpaque(const QWindow& window, bool opaque) const
{
    if (!opaque) {
        X11::deleteProperty(window.winId(), X11::wmOpaqueRegion);
        return;
    }
    const QSizeF size = QSizeF(window.size()) * window.devicePixelRatio();
    X11::setCardinals(window.winId(), X11::wmOpaqueRegion,
                      {0, 0, static_cast<quint32>(qCeil(size.width())),
                       static_cast<quint32>(qCeil(size.height()))});
}

void WindowPlatformX11::raiseAboveAll(QWindow& window) const
{
    using osUtils::System::coveringLayer;
    X11::setWindowLayer(window.winId(), coveringLayer(X11::windowManagerName(), true));
    X11::keepAbove(window.winId());
    window.raise();
}

void WindowPlatformX11::takeKeyboard(QWindow& window) const
{
    X11::activate(window.winId());
}

void WindowPlatformX11::reportPointerOnce(const QWindow& window) const
{
    X11::hearMasterDevicesOnly(window.winId());
}

void WindowPlatformX11::sendRequests() const
{
    xcb_flush(X11::connection());
}

bool WindowPlatformX11::showPixels(const QWindow& window,
                                   const osUtils::System::SharedPixels& pixels,
                                   const QRegion& region) const
{
    return X11::showPixels(window.winId(), pixels, region);
}

}
