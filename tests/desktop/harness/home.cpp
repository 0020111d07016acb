#include "tests/desktop/harness/home.h"

#include "tests/desktop/harness/eventually.h"

#include <QDir>
#include <QDirIterator>

Home::Home()
{
    const QDir top(folder.path());
    top.mkpath(QStringLiteral("home/.config"));
    // Beside the home: libraries fill their caches on their own account.
    top.mkpath(QStringLiteral("cache"));
    top.mkpath(QStringLiteral("runtime"));
    QFile::setPermissions(top.filePath(QStringLiteral("runtime")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

Home::~Home()
{
    // What a window manager has started may outlive it for a moment, and write here meanwhile.
    static_cast<void>(eventually([this] { return QDir(folder.path()).removeRecursively(); }));
}

QString Home::settingsFile() const
{
    return configPath() + QStringLiteral("/Varnholt/Korvel.conf");
}

QStringList Home::contents() const
{
    QStringList names;
    QDirIterator entries(path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        names.append(QDir(path()).relativeFilePath(entries.next()));
    names.sort();
    return names;
}

Environment Home::environment(const QByteArray& display) const
{
    Environment result{
        {"LC_ALL", "C.UTF-8"},
        {"DISPLAY", display},
        {"HOME", QFile::encodeName(path())},
        {"XDG_CONFIG_HOME", QFile::encodeName(configPath())},
        {"XDG_CACHE_HOME", QFile::encodeName(folder.filePath(QStringLiteral("cache")))},
        {"XDG_RUNTIME_DIR", QFile::encodeName(folder.filePath(QStringLiteral("runtime")))},
        {"DBUS_SESSION_BUS_ADDRESS", "disabled:"},
        {"NO_AT_BRIDGE", "1"}, // else some toolkits start a bus for accessibility
    };
    for (const char* inherited : {"PATH", "LD_LIBRARY_PATH", "QT_PLUGIN_PATH", "ASAN_OPTIONS",
                                  "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(inherited))
            result.insert(inherited, qgetenv(inherited));
    }
    return result;
}
