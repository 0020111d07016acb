#include "tests/desktop/harness/windowmanager.h"

#include "tests/desktop/harness/clientmessage.h"
#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/windows.h"
#include "tests/desktop/harness/xconnection.h"

#include <QDir>
#include <QFileInfo>

WindowManager::WindowManager(const ManagerRecipe& wanted, const XConnection& connection,
                             const QByteArray& where)
    : recipe(wanted)
    , x(connection)
    , display(where)
{
    if (recipe.program.isEmpty())
        return;
    writeSettings();
    if (recipe.needsBus)
        bus.emplace(home, display);
    manager = std::make_unique<ChildProcess>(Command{
        .program = recipe.program,
        .arguments = recipe.arguments,
        .environment = environment(),
    });
}

WindowManager::~WindowManager() = default;

bool WindowManager::isInCharge()
{
    if (!manager)
        return true;
    const Windows windows(x);
    if (!windows.has(x.root(), "_NET_SUPPORTING_WM_CHECK"))
        return false;
    // Openbox announces itself a little too early: windows that ask to be shown before it listens
    // are forgotten.
    if (!probe)
        probe = std::make_unique<ClientWindow>(x, ClientWindow::Kind::Ordinary, QRect(0, 0, 1, 1),
                                               Qt::white);
    probe->show();
    if (!windows.has(probe->id(), "WM_STATE"))
        return false;
    probe.reset();
    return true;
}

bool WindowManager::isAlive()
{
    return !manager || manager->isRunning();
}

QByteArray WindowManager::output() const
{
    return manager ? manager->output() : QByteArray();
}

void WindowManager::kill()
{
    if (manager)
        manager->send(SIGKILL);
    static_cast<void>(eventually([this] { return !manager || !manager->isRunning(); }));
}

void WindowManager::goToDesktop(int number)
{
    if (recipe.desktopCommand.isEmpty()) {
        askWindowManager(x, x.root(), "_NET_CURRENT_DESKTOP",
                         {static_cast<uint32_t>(number), XCB_CURRENT_TIME});
        return;
    }
    ChildProcess command({
        .program = recipe.desktopCommand.first(),
        .arguments = recipe.desktopCommand.mid(1) + QByteArrayList{QByteArray::number(number + 1)},
        .environment = environment(),
    });
    static_cast<void>(eventually([&] { return !command.isRunning(); }));
}

Environment WindowManager::environment() const
{
    Environment result = home.environment(display);
    result.insert(recipe.environment);
    if (bus)
        result["DBUS_SESSION_BUS_ADDRESS"] = bus->address();
    return result;
}

void WindowManager::writeSettings() const
{
    for (auto entry = recipe.settings.begin(); entry != recipe.settings.end(); ++entry) {
        QFile file(home.path() + '/' + QFile::decodeName(entry.key()));
        QDir().mkpath(QFileInfo(file).path());
        if (file.open(QFile::WriteOnly))
            file.write(entry.value());
    }
}
