#pragma once

#include "tests/desktop/harness/home.h"

/// A message bus for the programs of one home, with nothing on it but what they start there.
class MessageBus {
public:
    /// Returns when the bus takes connections.
    MessageBus(const Home& home, const QByteArray& display);

    /// As in the environment variable DBUS_SESSION_BUS_ADDRESS.
    [[nodiscard]] QByteArray address() const { return busAddress; }

private:
    const QByteArray busAddress;
    ChildProcess daemon;
};
