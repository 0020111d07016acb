#include "windowsystem/x11/x11windowsystem.h"

#include "windowsystem/screengeometry.h"
#include "windowsystem/x11/atoms.h"
#include "windowsystem/x11/exactplace.h"
#include "windowsystem/x11/hiddenuntilplaced.h"
#include "windowsystem/x11/masterdevices.h"
#include "windowsystem/x11/monitors.h"
#include "windowsystem/x11/reportedposition.h"
#include "windowsystem/x11/windowlayer.h"
#include "windowsystem/x11/x11screencapture.h"
#include "windowsystem/x11/x11window.h"

#include <QGuiApplication>
#include <QtMath>

#include <algorithm>

namespace Windowing::X11 {

namespace {

/// The size that Qt requests, in device pixels.
QSize deviceSize(const QWindow& window)
{
    return (QSizeF(window.size()) * window.devicePixelRatio()).toSize();
}

// Fixed-size hints keep window managers from fitting or maximising the new window.
void fixSize(QWindow& window, QSize size)
{
    // The maximum first: Qt 6.8.2 keeps a window within its present limits, 6.4.2 does not.
    window.setMaximumSize(size);
    window.setMinimumSize(size);
}

bool isOurs(WId id)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [id](const QWindow* window) {
        return window->handle() && window->winId() == id;
    });
}

// Xfwm4 (seen in 4.18) and marco (1.26) hand the keyboard to the topmost window, even an
// always-on-top one, and without a window manager nobody gets it. The others choose better: kwin
// (5.27) would show panels above a full-screen program that got the keyboard from us.
bool handsKeyboardToSomebodyElse(const QByteArray& windowManager)
{
    const QByteArray name = windowManager.toLower();
    return name.isEmpty() || name.contains("xfwm") || name.contains("marco");
}

}

std::optional<QRect> X11WindowSystem::deviceGeometry(const QScreen& screen) const
{
    return monitorOf(screen.geometry(), screen.devicePixelRatio(), monitors());
}

std::unique_ptr<ScreenCapture> X11WindowSystem::capture(QScreen& screen) const
{
    if (const std::optional<QRect> place = deviceGeometry(screen))
        return std::make_unique<X11ScreenCapture>(screen, *place);
    return std::make_unique<ScreenCapture>(screen);
}

/// The screen that the window covers; null if there is none.
const QScreen* X11WindowSystem::coveredScreen(const QWindow& window) const
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto covered = std::find_if(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return coveringGeometry(*screen) == window.geometry();
    });
    return covered == screens.end() ? nullptr : *covered;
}

void X11WindowSystem::bringUp(QWindow& overlay)
{
    rememberKeyboard();
    const QByteArray windowManager = windowManagerName();
    present(overlay, overlay.size(), windowManager);
    // Needed until the window manager has brought the window up.
    delete overlay.findChild<ReportedPosition*>(QString(), Qt::FindDirectChildrenOnly);
    new ReportedPosition(overlay);
    if (movesNewWindows(windowManager))
        new HiddenUntilPlaced(overlay);
}

void X11WindowSystem::present(QWindow& overlay, QSize size)
{
    present(overlay, size, windowManagerName());
    // release() may have lowered it.
    keepAbove(overlay.winId());
    overlay.raise();
}

void X11WindowSystem::present(QWindow& overlay, QSize size, const QByteArray& windowManager)
{
    fixSize(overlay, size);
    const QScreen* covered = coveredScreen(overlay);
    const WindowLayer layer = coveringLayer(windowManager, covered != nullptr);
    setWindowLayer(overlay.winId(), layer);
    qCDebug(windowSystemLog) << "Window manager" << windowManager << "- overlay"
                             << overlay.geometry() << "ratio" << overlay.devicePixelRatio() << "on"
                             << (covered ? covered->name() : QStringLiteral("no whole screen"))
                             << "of the monitors" << monitors() << "- dock"
                             << (layer.type == WindowLayer::Type::Dock) << "full screen"
                             << layer.fullScreen;
    const std::optional<QRect> place = covered ? deviceGeometry(*covered) : std::nullopt;
    if (place)
        fitExactly(overlay, *place);
    overlay.setWindowStates(layer.fullScreen ? Qt::WindowFullScreen : Qt::WindowNoState);
    if (layer.fullScreen)
        return;
    places[&overlay] = overlay.geometry();
    // The size hints held a visible overlay to its old size when its tool resized it.
    requestSize(overlay.winId(), place ? place->size() : deviceSize(overlay));
}

// For screens where Qt's size reaches beyond the edge by a fraction of a logical pixel.
void X11WindowSystem::fitExactly(QWindow& window, const QRect& place) const
{
    if (deviceSize(window) == place.size())
        return;
    const qreal ratio = window.devicePixelRatio();
    // The hints allow the exact size, which lies between two that Qt can give.
    window.setMinimumSize(
        {static_cast<int>(place.width() / ratio), static_cast<int>(place.height() / ratio)});
    delete window.findChild<ExactPlace*>(QString(), Qt::FindDirectChildrenOnly);
    auto* const exact = new ExactPlace(window, place);
    if (window.isExposed())
        exact->insist();
}

void X11WindowSystem::release(QWindow& overlay)
{
    constexpr int unlimited = (1 << 24) - 1; // Qt's own default for a window
    delete overlay.findChild<ExactPlace*>(QString(), Qt::FindDirectChildrenOnly);
    overlay.setMinimumSize(QSize(0, 0));
    overlay.setMaximumSize(QSize(unlimited, unlimited));
    setWindowLayer(overlay.winId(), {WindowLayer::Type::Normal, false});
    overlay.setWindowStates(Qt::WindowNoState);
    // Openbox (seen in 3.6) treats any window that covers the screen and has the keyboard as
    // full-screen.
    if (coveredScreen(overlay))
        requestSize(overlay.winId(), deviceSize(overlay) - QSize(0, 1));
    if (keepsTopWindowsAbovePanels(windowManagerName())) {
        // Not lowered: it would end up below all other windows, and xfwm4 would pass on the
        // keyboard.
        stopKeepingAbove(overlay.winId());
        return;
    }
    // It stays in the always-on-top layer, where some window managers keep panels, too.
    overlay.lower();
}

void X11WindowSystem::settle(QWindow& overlay)
{
    // i3 (seen in 4.22) reads the desktop's corner as no position at all and centres the window.
    // Once the window is mapped, i3 heeds a request.
    const auto place = places.extract(&overlay);
    if (!place.empty() && overlay.geometry() != place.mapped())
        overlay.setGeometry(place.mapped());
    if (auto* exact = overlay.findChild<ExactPlace*>(QString(), Qt::FindDirectChildrenOnly))
        exact->insist();
    qCDebug(windowSystemLog) << "Overlay exposed at" << positionOnDesktop(overlay.winId())
                             << overlay.geometry() << "inside"
                             << windowAndFrames(overlay.winId()).size() - 1 << "frames";
}

void X11WindowSystem::presentDialog(QWindow& dialog) const
{
    dialog.setFlag(Qt::WindowStaysOnTopHint); // else openbox puts it under an overlay's dock
}

void X11WindowSystem::setShadow(const QWindow& window, bool shadow) const
{
    const WId id = window.winId();
    if (shadow)
        deleteProperty(id, frameExtents);
    else
        setCardinals(id, frameExtents, {0, 0, 0, 0});

    for (const WId level : windowAndFrames(id)) {
        if (shadow)
            deleteProperty(level, picomShadow);
        else
            setCardinals(level, picomShadow, {0});
    }
}

void X11WindowSystem::setInputRegion(const QWindow& window,
                                     const std::optional<QRegion>& region) const
{
    // The frames as well: in fluxbox they catch the clicks that the window lets through. They have
    // the window's size, since the window is frameless.
    for (const WId level : windowAndFrames(window.winId()))
        setInputShape(level, region);
}

void X11WindowSystem::setOpaque(const QWindow& window, bool opaque) const
{
    if (!opaque) {
        deleteProperty(window.winId(), wmOpaqueRegion);
        return;
    }
    const QSizeF size = QSizeF(window.size()) * window.devicePixelRatio();
    setCardinals(window.winId(), wmOpaqueRegion,
                 {0, 0, static_cast<quint32>(qCeil(size.width())),
                  static_cast<quint32>(qCeil(size.height()))});
}

void X11WindowSystem::raiseAboveAll(QWindow& window) const
{
    setWindowLayer(window.winId(), coveringLayer(windowManagerName(), true));
    keepAbove(window.winId());
    window.raise();
}

void X11WindowSystem::takeKeyboard(QWindow& window) const
{
    activate(window.winId());
}

void X11WindowSystem::rememberKeyboard()
{
    const WId focused = focusedWindow();
    if (!isOurs(focused))
        keyboardLender = focused;
}

void X11WindowSystem::giveKeyboardBack() const
{
    qCDebug(windowSystemLog) << "The keyboard came from" << keyboardLender << "and is with"
                             << focusedWindow();
    if (keyboardLender != 0 && handsKeyboardToSomebodyElse(windowManagerName())
        && isOurs(focusedWindow()))
        activate(keyboardLender);
}

void X11WindowSystem::reportPointerOnce(const QWindow& window) const
{
    hearMasterDevicesOnly(window.winId());
}

QPoint X11WindowSystem::cursorHotSpot(QPoint hotSpot, qreal ratio) const
{
    // Qt's xcb plug-in (seen in 6.4.2 and 6.8.2) passes the image on in its own pixels but leaves
    // the hot spot unscaled. The end-to-end tests of cursors fail once a later version scales it.
    return hotSpot * ratio;
}

bool X11WindowSystem::hasCompositor() const
{
    if (!compositor) {
        // The Extended Window Manager Hints: a compositor owns this selection for as long as it
        // runs.
        compositor = std::make_unique<SelectionWatch>("_NET_WM_CM_S0");
        connect(compositor.get(), SIGNAL(lost()), this, SIGNAL(compositorEnded()));
    }
    return compositor->hasOwner();
}

}
