#include "shell/storeonceshown.h"

#include "windowsystem/nativewindow.h"

#include <QCoreApplication>
#include <QSettings>

StoreOnceShown::StoreOnceShown(QSettings& values, QWidget& window)
    : settings(values)
{
    // Removes QSettings' own request to be stored in the first turn of the event loop.
    QCoreApplication::removePostedEvents(&settings, QEvent::UpdateRequest);
    // Queued: Qt paints before it returns to the event loop.
    connect(&Windowing::NativeWindow::of(window), SIGNAL(exposed()), this, SLOT(store()),
            Qt::QueuedConnection);
}

void StoreOnceShown::store()
{
    settings.sync();
}
