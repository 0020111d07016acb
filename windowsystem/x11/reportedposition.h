#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPoint>
#include <QWindow>

namespace Windowing::X11 {

/// Has Qt believe a window where it was last said to be, until its frame is on the screen.
///
/// The server's notices tell the place inside the parent, and so Qt asks the server where that is on the screen.
/// By then the window manager may have put a frame around the window that it has yet to move to its place. If another
/// monitor is there, Qt goes over to its scale factor and back, and may miss the way back.
class ReportedPosition : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works on the window as long as it lives, and belongs to it. It is not mapped yet.
    explicit ReportedPosition(QWindow& window);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    const WId window;
    /// Seen from the root window, in device pixels.
    QPoint position;
    bool framed = false;
};

}
