#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QWindow>

namespace Windowing::X11 {

/// Keeps a mapped window invisible until the window manager has moved it into place inside the
/// frame that it made for it. Without a window manager the window shows when it is mapped.
///
/// A window without a background is see-through until its first paint, so the screen stays as it is
/// while the window comes up. If it were moved meanwhile, it would take along what shows through.
class HiddenUntilPlaced : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Works once; belongs to the window, which is not mapped yet.
    explicit HiddenUntilPlaced(QWindow& hidden);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void show();

    const WId window;
    bool mapped = false;
    bool framed = false;
};

}
