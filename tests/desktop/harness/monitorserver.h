#pragma once

#include "tests/desktop/harness/xserver.h"

#include <QTemporaryDir>

/// An X server with sixteen outputs that monitors can be plugged into (see Monitors), and with
/// input devices that a test can play (see InputDevice). Needs Xorg with its dummy video driver,
/// and the rights of root.
class MonitorServer : public XServer {
public:
    MonitorServer();

    /// Where the driver of an input device listens: "pad", "touch" or "pen".
    [[nodiscard]] QByteArray inputSocket(const QByteArray& device) const;

private:
    explicit MonitorServer(std::unique_ptr<QTemporaryDir> ownFolder);

    std::unique_ptr<QTemporaryDir> folder;
};
