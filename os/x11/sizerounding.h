#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

class QWindow;

namespace osUtils::X11 {

/// Has the toolkit take a window for large enough to reach its last pixel. At a fractional ratio it
/// rounds the size that the server tells to the nearest logical pixel, and paints nothing beyond; here
/// the server tells a size that is rounded up instead. The window itself stays as it is.
class SizeRounding : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works on the window as long as it lives, and belongs to it.
    explicit SizeRounding(QWindow& window);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    const QWindow& window;
};

}
