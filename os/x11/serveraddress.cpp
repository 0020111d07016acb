#include "os/x11/serveraddress.h"

#include <cstring>

namespace osUtils::X11 {

ServerAddress::ServerAddress(xcb_connection_t* connection)
    : known(getpeername(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr*>(&address),
                        &length)
            == 0)
{
}

bool ServerAddress::operator==(const ServerAddress& other) const
{
    return known && other.known && length == other.length
        && std::memcmp(&address, &other.address, length) == 0;
}

}
