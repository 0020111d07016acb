#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPoint>
#include <QWindow>

namespace Windowing::X11 {

/// Makes Qt believe that a window is where it was last reported to be, until its frame is on the
/// screen.
///
/// The server's notices give the position inside the parent, so Qt asks the server where that is on
/// the screen. By then the window manager may have put a frame around the window without having
/// moved it into place yet. If the frame is on another monitor, Qt switches to that monitor's scale
/// factor and back, and may miss the way back.
class ReportedPosition : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works as long as the window lives, and belongs to it. The window is not mapped yet.
    explicit ReportedPosition(QWindow& reported);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    const WId window;
    /// Seen from the root window, in device pixels.
    QPoint position;
    bool framed = false;
};

}
