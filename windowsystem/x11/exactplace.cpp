#include "windowsystem/x11/exactplace.h"

#include "windowsystem/screengeometry.h"
#include "windowsystem/x11/structurenotice.h"
#include "windowsystem/x11/x11window.h"

#include <QCoreApplication>
#include <QWindow>

namespace Windowing::X11 {

ExactPlace::ExactPlace(QWindow& placed, const QRect& exactPlace)
    : QObject(&placed)
    , window(placed)
    , place(exactPlace)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    setGeometry(window.winId(), place);
}

void ExactPlace::insist()
{
    // When Qt maps the window it sets size hints in steps of one logical pixel, and xfwm4 (seen in
    // 4.18) rounds the size down to a step.
    allowAnySize(window.winId());
    setGeometry(window.winId(), place);
}

bool ExactPlace::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    auto* event = structureNotice<xcb_configure_notify_event_t>(eventType, message, window.winId());
    if (!event)
        return false;
    const qreal ratio = window.devicePixelRatio();
    const QSize size = coveringSize({event->width, event->height}, ratio);
    event->width = static_cast<uint16_t>(qRound(size.width() * ratio));
    event->height = static_cast<uint16_t>(qRound(size.height() * ratio));
    return false;
}

}
