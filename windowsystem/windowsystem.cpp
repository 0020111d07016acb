#include "windowsystem/windowsystem.h"

#include "windowsystem/nativewindow.h"
#include "windowsystem/none/nowindowsystem.h"
#include "windowsystem/screengeometry.h"
#include "windowsystem/x11/connection.h"
#include "windowsystem/x11/x11windowsystem.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

#include <utility>

namespace Windowing {

Q_LOGGING_CATEGORY(windowSystemLog, "korvel.windowsystem", QtWarningMsg)

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

WindowSystem* presentOne(const QGuiApplication& application)
{
    return application.findChild<WindowSystem*>(QString(), Qt::FindDirectChildrenOnly);
}

WindowSystem& install(std::unique_ptr<WindowSystem> system, QGuiApplication& application)
{
    system->setParent(&application);
    // Tools open dialogs and overlays by themselves; only their events show it.
    application.installEventFilter(system.get());
    return *system.release();
}

std::unique_ptr<WindowSystem> ofPlatform()
{
    if (X11::connection())
        return std::make_unique<X11::X11WindowSystem>();
    return std::make_unique<NoWindowSystem>();
}

}

WindowSystem& WindowSystem::ofSession()
{
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (!application) {
        static NoWindowSystem none;
        return none;
    }
    WindowSystem* known = presentOne(*application);
    return known ? *known : install(ofPlatform(), *application);
}

void WindowSystem::replace(std::unique_ptr<WindowSystem> other)
{
    delete presentOne(*qGuiApp);
    install(std::move(other), *qGuiApp);
}

int WindowSystem::pointerScreen() const
{
    QList<QRect> geometries;
    for (const QScreen* screen : QGuiApplication::screens())
        geometries.append(screen->geometry());
    return screenHolding(QCursor::pos(), geometries);
}

QRect WindowSystem::coveringGeometry(const QScreen& screen) const
{
    const std::optional<QRect> device = deviceGeometry(screen);
    if (!device)
        return screen.geometry();
    return {screen.geometry().topLeft(), coveringSize(device->size(), screen.devicePixelRatio())};
}

void WindowSystem::setCovering(bool wanted)
{
    const bool released = std::exchange(covering, wanted) && !wanted;
    if (!covering && !released)
        return;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (!window->isVisible() || !isOverlay(*window))
            continue;
        if (covering)
            present(*window, window->size());
        else
            release(*window);
    }
}

bool WindowSystem::isCovered(const QWindow& window) const
{
    return covering && isOverlay(window);
}

bool WindowSystem::eventFilter(QObject* watched, QEvent* event)
{
    if (covering && event->type() == QEvent::Show && watched->isWindowType()) {
        auto& window = static_cast<QWindow&>(*watched);
        if (isDialogOfOverlay(window))
            presentDialog(window);
        else if (QWidget* widget = isOverlay(window) ? QWidget::find(window.winId()) : nullptr)
            NativeWindow::of(*widget); // is told of this very event
    }
    return QObject::eventFilter(watched, event);
}

}
