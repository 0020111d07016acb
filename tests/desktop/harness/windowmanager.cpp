#include "tests/desktop/harness/windowmanager.h"

#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/xconnection.h"

WindowManager::WindowManager(Kind wanted, const XConnection& connection, const QByteArray& display)
    : kind(wanted)
    , x(connection)
{
    if (kind == Kind::Openbox)
        startOpenbox(display);
    if (kind == Kind::Xfwm4)
        startXfwm4(display);
}

WindowManager::~WindowManager() = default;

bool WindowManager::isInCharge()
{
    if (kind == Kind::None)
        return true;
    if (!hasProperty(x.root(), "_NET_SUPPORTING_WM_CHECK"))
        return false;
    // Openbox announces itself a little too early: windows that ask to be shown before it listens are forgotten.
    if (!probe)
        probe = std::make_unique<ClientWindow>(x, ClientWindow::Kind::Ordinary, QRect(0, 0, 1, 1),
                                               Qt::white);
    probe->show();
    if (!hasProperty(probe->id(), "WM_STATE"))
        return false;
    probe.reset();
    return true;
}

bool WindowManager::hasProperty(xcb_window_t window, const char* name) const
{
    const auto cookie =
        xcb_get_property(x.raw(), 0, window, x.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x.raw(), cookie, nullptr));
    return reply && reply->value_len > 0;
}

void WindowManager::startOpenbox(const QByteArray& display)
{
    manager = std::make_unique<ChildProcess>(Command{
        .program = "/usr/bin/openbox",
        .arguments = {"--sm-disable"},
        .environment = home.environment(display),
    });
}

void WindowManager::startXfwm4(const QByteArray& display)
{
    // It asks for its own settings over a message bus, and ends at once where there is none.
    const QByteArray address = "unix:path=" + QFile::encodeName(home.path()) + "/.config/bus";
    Environment environment = home.environment(display);
    environment["DBUS_SESSION_BUS_ADDRESS"] = address;
    bus = std::make_unique<ChildProcess>(Command{
        .program = "/usr/bin/dbus-daemon",
        .arguments = {"--session", "--nofork", "--nopidfile", "--address=" + address},
        .environment = environment,
    });
    static_cast<void>(
        eventually([&] { return QFile::exists(home.configPath() + QStringLiteral("/bus")); }));
    manager = std::make_unique<ChildProcess>(Command{
        .program = "/usr/bin/xfwm4",
        .arguments = {"--compositor=off", "--sm-client-disable"},
        .environment = environment,
    });
}
