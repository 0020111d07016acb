#include "windowsystem/x11/reportedposition.h"

#include "windowsystem/x11/connection.h"
#include "windowsystem/x11/structurenotice.h"
#include "windowsystem/x11/x11window.h"

#include <QCoreApplication>

namespace Windowing::X11 {

ReportedPosition::ReportedPosition(QWindow& reported)
    : QObject(&reported)
    , window(reported.winId())
    , position(positionOnDesktop(window))
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool ReportedPosition::nativeEventFilter(const QByteArray& eventType, void* message,
                                         qintptr* /*result*/)
{
    if (const auto* reparented =
            structureNotice<xcb_reparent_notify_event_t>(eventType, message, window))
        framed = reparented->parent != rootWindow();

    auto* const configured =
        structureNotice<xcb_configure_notify_event_t>(eventType, message, window);
    if (!configured)
        return false;
    const bool isOnDesktop = !framed || (configured->response_type & sentByAClient) != 0;
    if (isOnDesktop)
        position = {configured->x, configured->y};
    else if (isMappedWithFrames(window))
        return false;
    configured->x = static_cast<int16_t>(position.x());
    configured->y = static_cast<int16_t>(position.y());
    configured->response_type |= sentByAClient;
    return false;
}

}
