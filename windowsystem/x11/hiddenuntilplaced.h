#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QWindow>

namespace Windowing::X11 {

/// Keeps a window that is mapped invisible until the window manager has put it into its place inside the frame that it
/// has made for it. Without a window manager it shows when it is mapped.
///
/// A window without background is see-through until its first paint: while it comes up the screen stays as it is. Moved
/// meanwhile, it would take along what has shown through.
class HiddenUntilPlaced : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works once; belongs to the window, which is not mapped yet.
    explicit HiddenUntilPlaced(QWindow& window);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void show();

    const WId window;
    bool mapped = false;
    bool framed = false;
};

}
