#include "tests/desktop/harness/messagebus.h"

#include "tests/desktop/harness/eventually.h"

namespace {

QString socketOf(const Home& home)
{
    return home.configPath() + QStringLiteral("/bus");
}

Environment environmentFor(const Home& home, const QByteArray& display, const QByteArray& address)
{
    Environment environment = home.environment(display);
    environment["DBUS_SESSION_BUS_ADDRESS"] = address; // for what the bus starts
    return environment;
}

}

MessageBus::MessageBus(const Home& home, const QByteArray& display)
    : busAddress("unix:path=" + QFile::encodeName(socketOf(home)))
    , daemon({
          .program = "/usr/bin/dbus-daemon",
          .arguments = {"--session", "--nofork", "--nopidfile", "--address=" + busAddress},
          .environment = environmentFor(home, display, busAddress),
      })
{
    static_cast<void>(
        eventually([&] { return QFile::exists(socketOf(home)) || !daemon.isRunning(); }));
}
