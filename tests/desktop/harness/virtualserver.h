#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <QSize>

#include <memory>

/// An X server without hardware, with one screen, on a display number that it finds itself.
class VirtualServer {
public:
    /// Returns when the server takes connections.
    /// @param screen  in device pixels
    explicit VirtualServer(QSize screen = {1280, 800});

    /// As in the environment variable DISPLAY, such as ":7"; empty if the server did not start.
    [[nodiscard]] QByteArray display() const { return displayName; }

private:
    std::unique_ptr<ChildProcess> server;
    QByteArray displayName;
};
