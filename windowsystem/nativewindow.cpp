#include "windowsystem/nativewindow.h"

#include "windowsystem/screengeometry.h"
#include "windowsystem/windowsystem.h"

#include <QEvent>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace Windowing {

namespace {

bool changesPlace(QEvent::Type type)
{
    return type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show
        || type == QEvent::Hide;
}

}

NativeWindow& NativeWindow::of(QWidget& widget)
{
    QWidget& topLevel = *widget.window();
    topLevel.winId();
    if (auto* known = topLevel.findChild<NativeWindow*>(QString(), Qt::FindDirectChildrenOnly))
        return *known;
    return *new NativeWindow(topLevel);
}

NativeWindow::NativeWindow(QWidget& topLevel)
    : QObject(&topLevel)
    , widget(topLevel)
    , system(WindowSystem::ofSession())
{
    widget.installEventFilter(this);
    watchNativeWindow();
}

void NativeWindow::setShadow(bool wanted)
{
    shadow = wanted;
    applyShadow();
}

void NativeWindow::setIgnoresMouse(bool ignore)
{
    ignoresMouse = ignore;
    applyInputRegion();
}

void NativeWindow::goOnCatchingMouseOver(QWidget& child)
{
    catchers.append(&child);
    child.installEventFilter(this);
    applyInputRegion();
}

void NativeWindow::setOpaque(bool wanted)
{
    opaque = wanted;
    applyOpaque();
}

void NativeWindow::raiseAboveAll()
{
    aboveAll = true;
    system.raiseAboveAll(*window());
}

void NativeWindow::takeKeyboard()
{
    if (!widget.isVisible())
        return;
    if (settled)
        system.takeKeyboard(*window());
    else
        keyboardWanted = true;
}

QWindow* NativeWindow::window() const
{
    return widget.windowHandle();
}

bool NativeWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &widget)
        return widgetEvent(*event);
    if (watched == window())
        return windowEvent(*event);
    if (changesPlace(event->type()))
        applyInputRegion();
    return false;
}

void NativeWindow::watchNativeWindow()
{
    if (window())
        window()->installEventFilter(this);
}

bool NativeWindow::widgetEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::Show:
        settled = false;
        break;
    case QEvent::WinIdChange:
        settled = false;
        watchNativeWindow();
        applyAll();
        break;
    case QEvent::Resize:
        applyOpaque();
        // Resized by the tool, not by the window manager: another size is another way to cover the
        // screen.
        if (widget.isVisible() && !event.spontaneous() && system.isCovered(*window()))
            system.present(*window(), widget.size());
        break;
    case QEvent::ChildRemoved:
        applyInputRegion();
        break;
    default:
        break;
    }
    return false;
}

bool NativeWindow::windowEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::Show:
        // Sent before the window is mapped.
        if (system.isCovered(*window()))
            system.bringUp(*window());
        break;
    case QEvent::Expose:
        // The first one follows the map, when the window manager has put its frames around.
        if (!std::exchange(settled, true))
            settle();
        break;
    case QEvent::Close:
        if (system.isCovered(*window()))
            system.giveKeyboardBack();
        break;
    default:
        break;
    }
    return false;
}

void NativeWindow::settle()
{
    system.settle(*window());
    applyAll();
    // Window managers ignore these requests for a window that is not mapped.
    if (aboveAll)
        system.raiseAboveAll(*window());
    if (std::exchange(keyboardWanted, false))
        system.takeKeyboard(*window());
    emit exposed();
}

void NativeWindow::applyAll() const
{
    applyShadow();
    applyInputRegion();
    applyOpaque();
}

void NativeWindow::applyShadow() const
{
    if (shadow && window())
        system.setShadow(*window(), *shadow);
}

void NativeWindow::applyInputRegion() const
{
    if (!ignoresMouse || !window())
        return;
    std::optional<QRegion> region;
    if (*ignoresMouse)
        region = childRegion(widget, catchers);
    system.setInputRegion(*window(), region);
}

void NativeWindow::applyOpaque() const
{
    if (opaque && window())
        system.setOpaque(*window(), *opaque);
}

QRegion childRegion(const QWidget& window, const QList<QPointer<QWidget>>& widgets)
{
    QRegion region;
    for (const QWidget* child : widgets) {
        if (!child || child->parent() != &window || child->isHidden())
            continue;
        const QRegion mask = child->mask();
        region += mask.isEmpty() ? child->geometry() : mask.translated(child->pos());
    }
    return deviceRegion(region, window.devicePixelRatioF());
}

}
