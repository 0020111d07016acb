#include "windowsystem/x11/hiddenuntilplaced.h"

#include "windowsystem/x11/structurenotice.h"
#include "windowsystem/x11/x11window.h"

#include <QCoreApplication>
#include <QRegion>

namespace Windowing::X11 {

HiddenUntilPlaced::HiddenUntilPlaced(QWindow& hidden)
    : QObject(&hidden)
    , window(hidden.winId())
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    setVisibleShape(window, QRegion());
}

bool HiddenUntilPlaced::nativeEventFilter(const QByteArray& eventType, void* message,
                                          qintptr* /*result*/)
{
    if (structureNotice<xcb_reparent_notify_event_t>(eventType, message, window))
        framed = true;
    if (structureNotice<xcb_map_notify_event_t>(eventType, message, window)) {
        mapped = true;
        if (!framed)
            show();
    }
    if (structureNotice<xcb_configure_notify_event_t>(eventType, message, window) && mapped)
        show();
    return false;
}

void HiddenUntilPlaced::show()
{
    setVisibleShape(window, std::nullopt);
    deleteLater();
}

}
