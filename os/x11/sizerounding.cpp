#include "os/x11/sizerounding.h"

#include "os/screencover.h"

#include <QCoreApplication>
#include <QWindow>

#include <xcb/xcb.h>

namespace osUtils::X11 {

SizeRounding::SizeRounding(QWindow& rounded)
    : QObject(&rounded)
    , window(rounded)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool SizeRounding::nativeEventFilter(const QByteArray& eventType, void* message,
                                     qintptr* /*result*/)
{
    constexpr uint8_t sentByAClient = 0x80; // a window manager tells a size in this way
    auto* event = static_cast<xcb_configure_notify_event_t*>(message);
    if (eventType != "xcb_generic_event_t"
        || (event->response_type & ~sentByAClient) != XCB_CONFIGURE_NOTIFY
        || event->window != window.winId())
        return false;
    const qreal ratio = window.devicePixelRatio();
    const QSize size = System::coveringSize({event->width, event->height}, ratio);
    event->width = static_cast<uint16_t>(qRound(size.width() * ratio));
    event->height = static_cast<uint16_t>(qRound(size.height() * ratio));
    return false;
}

}
