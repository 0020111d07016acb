#pragma once

#include "windowsystem/nativewindow.h"

#include <QRegion>

namespace Helpers::NQt {

class FrameEngine;
class TransparentFrame;

/// Has the window system show the background wherever the frame's window comes to light, and Qt paint
/// only what lies on top. Else Qt would first paint a copy of the whole screen into its backing store: a
/// large screen would take twice as long to be there, for memory that is not needed afterwards either. What the
/// backing store holds elsewhere is never shown.
class BackgroundExposure : public Windowing::NativeWindow {
public:
    BackgroundExposure(TransparentFrame& frame, FrameEngine& engine);

protected:
    bool widgetEvent(QEvent& event) override;
    bool windowEvent(QEvent& event) override;

private:
    void suspendUpdates();
    /// Whether what shall be painted is painted when the window is exposed.
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
    /// Whether the backing store may hold less than what the window shows.
    bool storeIsPartial = false;
    /// When a window is exposed anew Qt tells it that, and where in a second event.
    bool paintAwaited = false;
    bool exposing = false;
    /// While Qt brings the window up and notes that all of it is to be painted.
    bool updatesSuspended = false;
};

}
