#include "overlay/nativewindow.h"

#include "overlay/screengeometry.h"
#include "overlay/windowplatform.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace Helpers::NQt {

namespace {

const WindowPlatform& platform()
{
    return windowPlatform(QGuiApplication::platformName());
}

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
    platform().raiseAboveAll(*widget.windowHandle());
}

void NativeWindow::takeKeyboard()
{
    if (!widget.isVisible())
        return;
    if (settled)
        platform().takeKeyboard(*widget.windowHandle());
    else
        keyboardWanted = true;
}

bool NativeWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &widget)
        windowChanged(event);
    else if (watched == widget.windowHandle())
        nativeWindowChanged(event);
    else if (changesPlace(event->type()))
        applyInputRegion();
    return QObject::eventFilter(watched, event);
}

void NativeWindow::watchNativeWindow()
{
    if (QWindow* window = widget.windowHandle())
        window->installEventFilter(this);
}

void NativeWindow::windowChanged(QEvent* event)
{
    if (event->type() == QEvent::Show) {
        settled = false;
    } else if (event->type() == QEvent::WinIdChange) {
        settled = false;
        watchNativeWindow();
        applyAll();
    } else if (event->type() == QEvent::Resize) {
        applyOpaque();
    } else if (event->type() == QEvent::ChildRemoved) {
        applyInputRegion();
    }
}

void NativeWindow::nativeWindowChanged(QEvent* event)
{
    // The first exposure follows the map, when the window manager has put its frames around.
    if (event->type() != QEvent::Expose || settled)
        return;
    settled = true;
    applyAll();
    // Asked of a window that was not mapped, these were not heard.
    if (aboveAll)
        platform().raiseAboveAll(*widget.windowHandle());
    if (std::exchange(keyboardWanted, false))
        platform().takeKeyboard(*widget.windowHandle());
}

void NativeWindow::applyAll() const
{
    applyShadow();
    applyInputRegion();
    applyOpaque();
}

void NativeWindow::applyShadow() const
{
    if (shadow && widget.windowHandle())
        platform().setShadow(*widget.windowHandle(), *shadow);
}

void NativeWindow::applyInputRegion() const
{
    if (!ignoresMouse || !widget.windowHandle())
        return;
    std::optional<QRegion> region;
    if (*ignoresMouse)
        region = childRegion(widget, catchers);
    platform().setInputRegion(*widget.windowHandle(), region);
}

void NativeWindow::applyOpaque() const
{
    if (opaque && widget.windowHandle())
        platform().setOpaque(*widget.windowHandle(), *opaque);
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
