#include "os/x11/ownconnection.h"

#include "os/x11/serveraddress.h"

namespace osUtils::X11 {

OwnConnection connectBeside(xcb_connection_t* other)
{
    OwnConnection own(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(own.get()) || ServerAddress(own.get()) != ServerAddress(other))
        return nullptr;
    return own;
}

}
