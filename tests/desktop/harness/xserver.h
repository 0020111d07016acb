#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <memory>

/// An X server of the test's own, on a display number that it finds itself. What it shows is up to
/// the derived class.
class XServer {
public:
    virtual ~XServer() = default;

    /// As in the environment variable DISPLAY, such as ":7"; empty if the server did not start.
    [[nodiscard]] QByteArray display() const { return displayName; }

    /// Ends it at once, as a crash does: all connections to it break.
    void kill();

protected:
    /// Returns when the server takes connections, or has given up.
    XServer(const QByteArray& program, const QList<QByteArray>& arguments);

private:
    std::unique_ptr<ChildProcess> server;
    QByteArray displayName;
};
