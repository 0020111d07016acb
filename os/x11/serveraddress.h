#pragma once

#include <xcb/xcb.h>

#include <sys/socket.h>

namespace osUtils::X11 {

/// Where the server at the other end of a connection is.
class ServerAddress {
public:
    explicit ServerAddress(xcb_connection_t* connection);

    /// False where either is not known.
    bool operator==(const ServerAddress& other) const;
    /// Whether it is reached by a socket of this machine, which memory can be handed over by.
    [[nodiscard]] bool isLocal() const { return known && address.ss_family == AF_UNIX; }

private:
    sockaddr_storage address{};
    socklen_t length = sizeof(address);
    bool known;
};

}
