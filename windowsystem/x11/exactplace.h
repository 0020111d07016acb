#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QRect>

class QWindow;

namespace Windowing::X11 {

/// Keeps a window at a place that is not a whole number of Qt's logical pixels. Qt is told a size
/// rounded up rather than to the nearest, so that it paints up to the last pixel.
class ExactPlace : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works as long as the window lives, and belongs to it.
    /// @param exactPlace  in device pixels, seen from the root window
    ExactPlace(QWindow& placed, const QRect& exactPlace);

    /// Asks for the place again, once the window manager has put its frames around the window.
    void insist();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    QWindow& window;
    const QRect place;
};

}
