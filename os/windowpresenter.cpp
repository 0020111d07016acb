#include "os/windowpresenter.h"

#include "os/screencover.h"
#include "os/windowlayer.h"
#include "os/x11/exactplace.h"
#include "os/x11/x11window.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <optional>

namespace osUtils::System {

namespace {

bool isOverlay(const QWindow& window)
{
    constexpr Qt::WindowFlags overlayFlags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    return window.isTopLevel() && window.type() == Qt::Window
        && (window.flags() & overlayFlags) == overlayFlags;
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

// Where the toolkit's sizes reach beyond the edge of the screen: by a part of a logical pixel.
void fitExactly(QWindow& window, const QRect& place)
{
    const qreal ratio = window.devicePixelRatio();
    if ((QSizeF(window.size()) * ratio).toSize() == place.size())
        return;
    // The hints allow the exact size, which lies between two that the toolkit can give.
    window.setMinimumSize(
        {static_cast<int>(place.width() / ratio), static_cast<int>(place.height() / ratio)});
    delete window.findChild<X11::ExactPlace*>(QString(), Qt::FindDirectChildrenOnly);
    new X11::ExactPlace(window, place);
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

    const QScreen* covered = coveredScreen(window);
    const WindowLayer layer = coveringLayer(X11::windowManagerName(), covered != nullptr);
    X11::setWindowLayer(window.winId(), layer);
    fixSize(window);
    const std::optional<QRect> place = covered ? deviceGeometry(*covered) : std::nullopt;
    if (place)
        fitExactly(window, *place);
    window.setWindowStates(layer.fullScreen ? Qt::WindowFullScreen : Qt::WindowNoState);
}

}
