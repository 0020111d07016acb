#pragma once

#include <QObject>
#include <QRegion>

class QWindow;

namespace Helpers::NQt {

class FrameEngine;
class TransparentFrame;

/// Has the window system show the background wherever the frame's window comes to light, and the toolkit paint
/// only what lies on top. Else the toolkit would first paint a copy of the whole screen into its backing store: a
/// large screen would take twice as long to be there, for memory that is not needed afterwards either. What the
/// backing store holds elsewhere is never shown.
class BackgroundExposure : public QObject {
public:
    BackgroundExposure(TransparentFrame& frame, FrameEngine& engine);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool frameChanged(const QEvent& event);
    void suspendUpdates();
    /// Whether what shall be painted is painted when the window is exposed.
    bool leaveToExposure();
    bool windowChanged(QEvent& event);
    bool windowExposed();
    void windowPainted(const QRegion& region);
    [[nodiscard]] bool showBackground(const QRegion& region);
    void prepareStore();
    void paint(const QRegion& region);
    void exposeToToolkit(const QRegion& region);
    [[nodiscard]] bool isWanted() const;
    [[nodiscard]] QRegion drawnRegion() const;
    [[nodiscard]] bool isDrawnAllOver() const;
    [[nodiscard]] QWindow* window() const;

    TransparentFrame& frame;
    FrameEngine& engine;
    /// Whether the backing store may hold less than what the window shows.
    bool storeIsPartial = false;
    /// When a window is exposed anew the toolkit tells it that, and where in a second event.
    bool paintAwaited = false;
    bool exposing = false;
    /// While the toolkit brings the window up and notes that all of it is to be painted.
    bool updatesSuspended = false;
};

}
