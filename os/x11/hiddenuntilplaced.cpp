#include "os/x11/hiddenuntilplaced.h"

#include "os/x11/x11window.h"

#include <QCoreApplication>
#include <QRegion>
#include <QWindow>

#include <xcb/xcb.h>

namespace osUtils::X11 {

HiddenUntilPlaced::HiddenUntilPlaced(QWindow& hidden)
    : QObject(&hidden)
    , window(hidden)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    setVisibleShape(window.winId(), QRegion());
}

bool HiddenUntilPlaced::nativeEventFilter(const QByteArray& eventType, void* message,
                                          qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    constexpr uint8_t sentByAClient = 0x80; // a window manager tells a place in this way
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & ~sentByAClient) {
    case XCB_REPARENT_NOTIFY:
        if (reinterpret_cast<const xcb_reparent_notify_event_t*>(event)->window == window.winId())
            framed = true;
        break;
    case XCB_MAP_NOTIFY:
        if (reinterpret_cast<const xcb_map_notify_event_t*>(event)->window != window.winId())
            break;
        mapped = true;
        if (!framed)
            show();
        break;
    case XCB_CONFIGURE_NOTIFY:
        if (reinterpret_cast<const xcb_configure_notify_event_t*>(event)->window == window.winId()
            && mapped)
            show();
        break;
    default:
        break;
    }
    return false;
}

void HiddenUntilPlaced::show()
{
    setVisibleShape(window.winId(), std::nullopt);
    deleteLater();
}

}
