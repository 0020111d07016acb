#include "os/windowpresenter.h"

#include "os/windowlayer.h"
#include "os/x11/x11window.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

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

bool coversScreen(const QWindow& window)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&window](const QScreen* screen) {
        return screen->geometry() == window.geometry();
    });
}

}

WindowPresenter::WindowPresenter(QObject* application)
    : QObject(application)
{
    application->installEventFilter(this);
}

void WindowPresenter::setCovering(bool wanted)
{
    covering = wanted;
    if (!covering)
        return;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && isOverlay(*window))
            present(*window);
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
        present(window);
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

void WindowPresenter::present(QWindow& window)
{
    if (!X11::isAvailable())
        return;

    const WindowLayer layer = coveringLayer(X11::windowManagerName(), coversScreen(window));
    X11::setWindowLayer(window.winId(), layer);
    // Fixed-size hints: a window manager that fits or maximises new windows leaves this one as it is.
    window.setMinimumSize(window.size());
    window.setMaximumSize(window.size());
    window.setWindowStates(layer.fullScreen ? Qt::WindowFullScreen : Qt::WindowNoState);
    if (layer.fullScreen)
        return;
    places[&window] = window.geometry();
    // A shown overlay that its tool has resized was held to its old size by the hints.
    const qreal ratio = window.devicePixelRatio();
    X11::requestSize(window.winId(), (QSizeF(window.size()) * ratio).toSize());
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
