#include "os/windowpresenter.h"

#include "os/screencover.h"
#include "os/windowlayer.h"
#include "os/x11/exactplace.h"
#include "os/x11/hiddenuntilplaced.h"
#include "os/x11/reportedposition.h"
#include "os/x11/x11window.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <utility>

namespace osUtils::System {

namespace {

bool isOverlay(const QWindow& window)
{
    constexpr Qt::WindowFlags overlayFlags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    return window.isTopLevel() && window.type() == Qt::Window
        && (window.flags() & overlayFlags) == overlayFlags;
}

bool isDialogOfOverlay(const QWindow& window)
{
    return window.type() == Qt::Dialog && window.transientParent()
        && isOverlay(*window.transientParent());
}

/// The screen that the window covers; null if there is none.
const QScreen* coveredScreen(const QWindow& window)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto covered =
        std::find_if(screens.begin(), screens.end(), [&window](const QScreen* screen) {
            return coveringGeometry(*screen) == window.geometry();
        });
    return covered == screens.end() ? nullptr : *covered;
}

// Fixed-size hints: a window manager that fits or maximises new windows leaves this one as it is.
void fixSize(QWindow& window)
{
    window.setMinimumSize(window.size());
    window.setMaximumSize(window.size());
}

/// As the toolkit asks for it, in device pixels.
QSize deviceSize(const QWindow& window)
{
    return (QSizeF(window.size()) * window.devicePixelRatio()).toSize();
}

// Where the toolkit's sizes reach beyond the edge of the screen: by a part of a logical pixel.
void fitExactly(QWindow& window, const QRect& place)
{
    if (deviceSize(window) == place.size())
        return;
    const qreal ratio = window.devicePixelRatio();
    // The hints allow the exact size, which lies between two that the toolkit can give.
    window.setMinimumSize(
        {static_cast<int>(place.width() / ratio), static_cast<int>(place.height() / ratio)});
    delete window.findChild<X11::ExactPlace*>(QString(), Qt::FindDirectChildrenOnly);
    new X11::ExactPlace(window, place);
}

// While the window manager brings a window up.
void watchPlacing(QWindow& window, const QByteArray& windowManager)
{
    delete window.findChild<X11::ReportedPosition*>(QString(), Qt::FindDirectChildrenOnly);
    new X11::ReportedPosition(window);
    if (movesNewWindows(windowManager))
        new X11::HiddenUntilPlaced(window);
}

}

WindowPresenter::WindowPresenter(QObject* application)
    : QObject(application)
{
    application->installEventFilter(this);
}

void WindowPresenter::setCovering(bool wanted)
{
    const bool released = std::exchange(covering, wanted) && !wanted;
    if (!(covering || released) || !X11::isAvailable())
        return;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (!window->isVisible() || !isOverlay(*window))
            continue;
        if (covering)
            present(*window, X11::windowManagerName());
        else
            release(*window);
    }
}

bool WindowPresenter::eventFilter(QObject* watched, QEvent* event)
{
    if (covering && watched->isWindowType()) {
        auto& window = static_cast<QWindow&>(*watched);
        if (isOverlay(window))
            overlayChanged(window, *event);
        else if (event->type() == QEvent::Show && isDialogOfOverlay(window))
            window.setFlag(
                Qt::WindowStaysOnTopHint); // else openbox puts it under an overlay's dock
    }
    return QObject::eventFilter(watched, event);
}

void WindowPresenter::overlayChanged(QWindow& window, const QEvent& event)
{
    switch (event.type()) {
    case QEvent::Show:
        // It comes before the window is mapped: the window manager never sees it otherwise.
        keyboard.remember();
        bringUp(window);
        break;
    case QEvent::Expose:
        insistOnPlace(window);
        break;
    case QEvent::Close:
        keyboard.giveBack();
        break;
    default:
        break;
    }
}

void WindowPresenter::bringUp(QWindow& window)
{
    if (!X11::isAvailable())
        return;
    const QByteArray windowManager = X11::windowManagerName();
    present(window, windowManager);
    watchPlacing(window, windowManager);
}

void WindowPresenter::present(QWindow& window, const QByteArray& windowManager)
{
    const QScreen* covered = coveredScreen(window);
    const WindowLayer layer = coveringLayer(windowManager, covered != nullptr);
    X11::setWindowLayer(window.winId(), layer);
    fixSize(window);
    const std::optional<QRect> place = covered ? deviceGeometry(*covered) : std::nullopt;
    if (place)
        fitExactly(window, *place);
    window.setWindowStates(layer.fullScreen ? Qt::WindowFullScreen : Qt::WindowNoState);
    if (layer.fullScreen)
        return;
    places[&window] = window.geometry();
    // A shown overlay that its tool has resized: with the hints of its old size it was held to that.
    X11::requestSize(window.winId(), place ? place->size() : deviceSize(window));
}

void WindowPresenter::release(QWindow& window)
{
    constexpr int unlimited = (1 << 24) - 1; // Qt's own for a window without a largest size
    delete window.findChild<X11::ExactPlace*>(QString(), Qt::FindDirectChildrenOnly);
    window.setMinimumSize(QSize(0, 0));
    window.setMaximumSize(QSize(unlimited, unlimited));
    X11::setWindowLayer(window.winId(), {WindowLayer::Type::Normal, false});
    window.setWindowStates(Qt::WindowNoState);
    // Openbox (seen in 3.6) takes whatever covers the screen and has the keyboard for full-screen.
    if (coveredScreen(window))
        X11::requestSize(window.winId(), deviceSize(window) - QSize(0, 1));
    // It stays on top of other windows, where some window managers keep panels, too.
    window.lower();
}

void WindowPresenter::insistOnPlace(QWindow& window)
{
    // I3 (seen in 4.22) takes the corner of the desktop for no place at all and puts the window into
    // the middle. Once it is mapped, a request is heard.
    const auto place = places.extract(&window);
    if (!place.empty() && window.geometry() != place.mapped())
        window.setGeometry(place.mapped());
}

}
