#include "overlay/backgroundexposure.h"

#include "overlay/frameengine.h"
#include "overlay/transparentframe.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <utility>

namespace Helpers::NQt {

BackgroundExposure::BackgroundExposure(TransparentFrame& exposedFrame, FrameEngine& exposedEngine)
    : NativeWindow(exposedFrame)
    , frame(exposedFrame)
    , engine(exposedEngine)
{
}

bool BackgroundExposure::widgetEvent(QEvent& event)
{
    if (event.type() == QEvent::Show)
        suspendUpdates();
    else if (event.type() == QEvent::ShowToParent && std::exchange(updatesSuspended, false))
        frame.setAttribute(Qt::WA_UpdatesDisabled, false);
    return NativeWindow::widgetEvent(event)
        || (event.type() == QEvent::UpdateLater && leaveToExposure());
}

void BackgroundExposure::suspendUpdates()
{
    updatesSuspended = frame.updatesEnabled() && leaveToExposure();
    // Only the attribute: setUpdatesEnabled() would repaint everything when updates are enabled
    // again.
    if (updatesSuspended)
        frame.setAttribute(Qt::WA_UpdatesDisabled);
}

bool BackgroundExposure::leaveToExposure()
{
    if (!window() || window()->isExposed() || isDrawnAllOver())
        return false;
    storeIsPartial = true;
    return true;
}

bool BackgroundExposure::windowEvent(QEvent& event)
{
    if (exposing)
        return false;
    if (NativeWindow::windowEvent(event))
        return true;
    if (event.type() == QEvent::Expose)
        return windowExposed();
    if (event.type() != QEvent::Paint || !window()->isExposed()
        || !(std::exchange(paintAwaited, false) || isWanted()))
        return false;
    windowPainted(static_cast<QPaintEvent&>(event).region());
    event.accept();
    return true;
}

bool BackgroundExposure::windowExposed()
{
    // A paint event with the region follows, or came before and was accepted.
    paintAwaited = window()->isExposed() && isWanted();
    if (paintAwaited)
        exposeToQt({});
    return paintAwaited;
}

void BackgroundExposure::windowPainted(const QRegion& region)
{
    const QRegion rest = region - drawnRegion();
    if (showBackground(rest)) {
        storeIsPartial = true;
        // Usually one rectangle each: for more than one Qt paints in threads, which cost more than
        // they save.
        const QRegion children = frame.childrenRegion();
        paint(region & children);
        paint(region - rest - children);
        return;
    }
    if (storeIsPartial)
        frame.update(region);
    exposeToQt(region);
    storeIsPartial = storeIsPartial && !QRegion(frame.rect()).subtracted(region).isEmpty();
}

bool BackgroundExposure::showBackground(const QRegion& region)
{
    if (region.isEmpty())
        return false;
    prepareStore();
    return engine.showBackground(*window(), region);
}

void BackgroundExposure::prepareStore()
{
    if (frame.backingStore()->size() == frame.size())
        return;
    // Qt repaints a store entirely if its size differs from the window's. Resizing asks the window
    // system for the memory, which it grants at once unless it is busy with the background.
    frame.backingStore()->resize(frame.size());
    storeIsPartial = true;
}

void BackgroundExposure::paint(const QRegion& region)
{
    if (region.isEmpty())
        return;
    frame.update(region);
    exposeToQt(region);
}

void BackgroundExposure::exposeToQt(const QRegion& region)
{
    const QScopedValueRollback guard(exposing, true);
    QExposeEvent event(region);
    QCoreApplication::sendEvent(window(), &event);
}

bool BackgroundExposure::isWanted() const
{
    return storeIsPartial || !isDrawnAllOver();
}

QRegion BackgroundExposure::drawnRegion() const
{
    return (frame.drawnRegion() | frame.childrenRegion()) & frame.rect();
}

bool BackgroundExposure::isDrawnAllOver() const
{
    return drawnRegion() == frame.rect();
}

}
