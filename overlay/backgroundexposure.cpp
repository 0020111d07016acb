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

BackgroundExposure::BackgroundExposure(TransparentFrame& exposed, FrameEngine& exposedEngine)
    : frame(exposed)
    , engine(exposedEngine)
{
    frame.installEventFilter(this);
}

bool BackgroundExposure::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &frame)
        return !exposing && windowChanged(*event);
    return frameChanged(*event);
}

bool BackgroundExposure::frameChanged(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::WinIdChange:
        if (window())
            window()->installEventFilter(this);
        return false;
    case QEvent::Show:
        suspendUpdates();
        return false;
    case QEvent::ShowToParent:
        if (std::exchange(updatesSuspended, false))
            frame.setAttribute(Qt::WA_UpdatesDisabled, false);
        return false;
    case QEvent::UpdateLater:
        return leaveToExposure();
    default:
        return false;
    }
}

void BackgroundExposure::suspendUpdates()
{
    updatesSuspended = frame.updatesEnabled() && leaveToExposure();
    // The attribute alone: the toolkit's method would update all when it takes it back.
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

bool BackgroundExposure::windowChanged(QEvent& event)
{
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
    // A paint event with the region follows, or has come and was accepted.
    paintAwaited = window()->isExposed() && isWanted();
    if (paintAwaited)
        exposeToToolkit({});
    return paintAwaited;
}

void BackgroundExposure::windowPainted(const QRegion& region)
{
    const QRegion rest = region - drawnRegion();
    if (showBackground(rest)) {
        storeIsPartial = true;
        // One rectangle each, as a rule: behind more than one the toolkit paints in threads, which cost more than
        // they help.
        const QRegion children = frame.childrenRegion();
        paint(region & children);
        paint(region - rest - children);
        return;
    }
    if (storeIsPartial)
        frame.update(region);
    exposeToToolkit(region);
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
    // The toolkit would paint all of one that has not the window's size. It asks the window system for the memory,
    // which answers at once as long as it is not busy with the background.
    frame.backingStore()->resize(frame.size());
    storeIsPartial = true;
}

void BackgroundExposure::paint(const QRegion& region)
{
    if (region.isEmpty())
        return;
    frame.update(region);
    exposeToToolkit(region);
}

void BackgroundExposure::exposeToToolkit(const QRegion& region)
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

QWindow* BackgroundExposure::window() const
{
    return frame.windowHandle();
}

}
