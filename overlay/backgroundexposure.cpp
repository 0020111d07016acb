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
    if (!rest.isEmpty() && engine.showBackground(*window(), rest)) {
        storeIsPartial = true;
        // The toolkit would paint all of one that has not the window's size.
        if (frame.backingStore()->size() != frame.size())
            frame.backingStore()->resize(frame.size());
        frame.update(region - rest);
        exposeToToolkit(region - rest);
        return;
    }
    if (storeIsPartial)
        frame.update(region);
    exposeToToolkit(region);
    storeIsPartial = storeIsPartial && !QRegion(frame.rect()).subtracted(region).isEmpty();
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
