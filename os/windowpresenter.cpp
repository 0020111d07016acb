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
    // The show event comes before the window is mapped: the window manager never sees it otherwise.
    if (covering && event->type() == QEvent::Show && watched->isWindowType()) {
        auto& window = static_cast<QWindow&>(*watched);
        if (isOverlay(window))
            present(window);
    }
    return QObject::eventFilter(watched, event);
}

void WindowPresenter::present(QWindow& window) const
{
    if (!X11::isAvailable())
        return;

    const WindowLayer layer = coveringLayer(X11::windowManagerName(), coversScreen(window));
    X11::setWindowLayer(window.winId(), layer);
    // Fixed-size hints: a window manager that fits or maximises new windows leaves this one as it is.
    window.setMinimumSize(window.size());
    window.setMaximumSize(window.size());
    window.setWindowStates(layer.fullScreen ? Qt::WindowFullScreen : Qt::WindowNoState);
}

}
