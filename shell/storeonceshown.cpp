#include "shell/storeonceshown.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTimer>
#include <QWidget>
#include <QWindow>

StoreOnceShown::StoreOnceShown(QSettings& values, const QWidget& window)
    : settings(values)
{
    // What has been set asks to be stored at the first turn of the event loop.
    QCoreApplication::removePostedEvents(&settings, QEvent::UpdateRequest);
    window.windowHandle()->installEventFilter(this);
}

bool StoreOnceShown::eventFilter(QObject* window, QEvent* event)
{
    if (event->type() == QEvent::Expose && static_cast<QWindow*>(window)->isExposed()) {
        window->removeEventFilter(this);
        // Qt paints before it returns to the event loop.
        QTimer::singleShot(0, this, [this] { settings.sync(); });
    }
    return false;
}
