#include "windowsystem/x11/selectionwatch.h"

#include "windowsystem/x11/atoms.h"
#include "windowsystem/x11/connection.h"
#include "windowsystem/x11/structurenotice.h"

#include <QCoreApplication>

#include <xcb/xfixes.h>

namespace Windowing::X11 {

namespace {

// The server must be told a version before any other request of the extension.
bool agreeOnXFixes()
{
    const auto cookie =
        xcb_xfixes_query_version(connection(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
    const auto reply = replyTo(xcb_xfixes_query_version_reply, connection(), cookie);
    return reply != nullptr;
}

}

SelectionWatch::SelectionWatch(QByteArrayView name)
    : selection(atom(name))
{
    const auto* extension = xcb_get_extension_data(connection(), &xcb_xfixes_id);
    if (!extension || !extension->present || !agreeOnXFixes())
        return;
    notifyEvent = static_cast<quint8>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(connection(), rootWindow(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    wasOwned = hasOwner();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

SelectionWatch::~SelectionWatch() = default;

bool SelectionWatch::hasOwner()
{
    const auto cookie = xcb_get_selection_owner(connection(), selection);
    const auto reply = replyTo(xcb_get_selection_owner_reply, connection(), cookie);
    wasOwned = reply && reply->owner != XCB_NONE;
    return wasOwned;
}

bool SelectionWatch::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                       qintptr* /*result*/)
{
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~sentByAClient) == notifyEvent) {
        const auto* notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event);
        // Qt watches some selections too, so a change may be reported more than once.
        const bool before = wasOwned;
        if (notify->selection == selection && !hasOwner() && before)
            emit lost();
    }
    // Qt handles the event too.
    return false;
}

}
