#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <memory>

/// An X server without hardware, with one screen of 1280 x 800 pixels, on a display number that it finds itself.
class VirtualServer {
public:
    /// Returns when the server takes connections.
    VirtualServer();

    /// As in the environment variable DISPLAY, such as ":7"; empty if the server did not start.
    [[nodiscard]] QByteArray display() const { return displayName; }

private:
    std::unique_ptr<ChildProcess> server;
    QByteArray displayName;
};
