#include "os/background.h"
#include "os/sessionbuspreload.h"

#include <QDBusConnection>

namespace osUtils::System {

// The toolkit keeps the connection. Where there is no bus it knows that, too, from then on.
SessionBusPreload::SessionBusPreload()
    : connecting(inBackground([] { static_cast<void>(QDBusConnection::sessionBus()); }))
{
}

}
