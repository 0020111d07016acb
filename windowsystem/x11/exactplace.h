#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QRect>

class QWindow;

namespace Windowing::X11 {

/// Holds a window at a place that is no whole number of Qt's logical pixels. Qt is
/// told a size that is rounded up instead of to the nearest, so that it paints up to the last pixel.
class ExactPlace : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works on the window as long as it lives, and belongs to it.
    /// @param place  in device pixels, seen from the root window
    ExactPlace(QWindow& window, const QRect& place);

    /// Asks for the place once more, when the window manager has put its frames around the window.
    void insist();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    QWindow& window;
    const QRect place;
};

}
