#pragma once

#include "windowsystem/nativewindow.h"

#include <QRegion>

namespace Helpers::NQt {

class FrameEngine;
class TransparentFrame;

/// Lets the window system show the background wherever the frame's window is exposed, so that Qt
/// paints only what lies on top. Otherwise Qt would first paint a copy of the whole screen into its
/// backing store: a large screen would take twice as long to appear, for memory that is not needed
/// afterwards. Whatever else the backing store holds is never shown.
class BackgroundExposure : public Windowing::NativeWindow {
public:
    BackgroundExposure(TransparentFrame& exposedFrame, FrameEngine& exposedEngine);

protected:
    bool widgetEvent(QEvent& event) override;
    bool windowEvent(QEvent& event) override;

private:
    void suspendUpdates();
    /// Whether the exposure of the window will paint what is due now.
    bool leaveToExposure();
    bool windowExposed();
    void windowPainted(const QRegion& region);
    [[nodiscard]] bool showBackground(const QRegion& region);
    void prepareStore();
    void paint(const QRegion& region);
    void exposeToQt(const QRegion& region);
    [[nodiscard]] bool isWanted() const;
    [[nodiscard]] QRegion drawnRegion() const;
    [[nodiscard]] bool isDrawnAllOver() const;

    TransparentFrame& frame;
    FrameEngine& engine;
    /// Whether the backing store may lack some of what the window shows.
    bool storeIsPartial = false;
    /// On a new exposure Qt sends an expose event without a region first, then a paint event with
    /// it.
    bool paintAwaited = false;
    bool exposing = false;
    /// While Qt shows the window and would mark all of it for painting.
    bool updatesSuspended = false;
};

}
