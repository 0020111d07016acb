#include "windowsystem/x11/monitors.h"

#include "windowsystem/x11/connection.h"
#include "windowsystem/x11/structurenotice.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <xcb/randr.h>

#include <optional>

namespace Windowing::X11 {

namespace {

QList<QRect> askForMonitors()
{
    constexpr uint8_t onlyThoseInUse = 1;
    const auto cookie = xcb_randr_get_monitors(connection(), rootWindow(), onlyThoseInUse);
    const auto reply = replyTo(xcb_randr_get_monitors_reply, connection(), cookie);
    if (!reply)
        return {};
    QList<QRect> places;
    for (auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitor.rem;
         xcb_randr_monitor_info_next(&monitor)) {
        const xcb_randr_monitor_info_t& info = *monitor.data;
        places.append({info.x, info.y, info.width, info.height});
    }
    return places;
}

/// Forgets the monitors when Qt is told of a change, since they are compared with Qt's screens.
class KnownMonitors : private QAbstractNativeEventFilter {
public:
    explicit KnownMonitors(uint8_t extensionsFirstEvent);
    QList<QRect> places();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    uint8_t firstEvent;
    std::optional<QList<QRect>> known;
};

KnownMonitors::KnownMonitors(uint8_t extensionsFirstEvent)
    : firstEvent(extensionsFirstEvent)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

QList<QRect> KnownMonitors::places()
{
    if (!known)
        known = askForMonitors();
    return *known;
}

bool KnownMonitors::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                      qintptr* /*result*/)
{
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const int code = (event->response_type & ~sentByAClient) - firstEvent;
    if (code == XCB_RANDR_SCREEN_CHANGE_NOTIFY || code == XCB_RANDR_NOTIFY)
        known.reset();
    return false;
}

}

QList<QRect> monitors()
{
    // A request to a missing extension would close the connection.
    const xcb_query_extension_reply_t* randr = xcb_get_extension_data(connection(), &xcb_randr_id);
    if (!randr || !randr->present)
        return {};
    static KnownMonitors known(randr->first_event);
    return known.places();
}

}
