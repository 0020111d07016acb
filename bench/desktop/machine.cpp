#include "bench/desktop/machine.h"

#include <QFile>
#include <QSysInfo>

#include <sys/utsname.h>
#include <thread>
#include <unistd.h>

namespace Bench {

namespace {

/// What stands after the key in the first line that begins with it.
QByteArray valueIn(const char* path, const QByteArray& key)
{
    QFile file(QString::fromUtf8(path));
    if (!file.open(QFile::ReadOnly))
        return {};
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(line.indexOf(':') + 1).simplified();
    }
    return {};
}

/// Of a package of the distribution; empty if it is not installed.
QByteArray packageVersion(const QByteArray& package)
{
    QFile file(QStringLiteral("/var/lib/dpkg/status"));
    if (!file.open(QFile::ReadOnly))
        return {};
    const QByteArray text = '\n' + file.readAll();
    const qsizetype entry = text.indexOf("\nPackage: " + package + "\nStatus: install ok");
    if (entry < 0)
        return {};
    const QByteArray key = "\nVersion: ";
    const qsizetype version = text.indexOf(key, entry) + key.size();
    return text.mid(version, text.indexOf('\n', version) - version);
}

QByteArray versions()
{
    QList<QByteArray> found;
    for (const char* package : {"xvfb", "libqt6gui6", "gromit-mpx", "flameshot"}) {
        const QByteArray version = packageVersion(package);
        found.append(version.isEmpty() ? QByteArray(package) + " not installed"
                                       : QByteArray(package) + ' ' + version);
    }
    return found.join(", ");
}

}

QByteArray machineDescription()
{
    utsname kernel{};
    ::uname(&kernel);
    const auto mebibytes = ::sysconf(_SC_PHYS_PAGES) / 1024 * ::sysconf(_SC_PAGESIZE) / 1024;
    return "- processor: " + valueIn("/proc/cpuinfo", "model name") + ", "
        + QByteArray::number(std::thread::hardware_concurrency())
        + " usable\n- memory: " + QByteArray::number(static_cast<qlonglong>(mebibytes))
        + " MiB\n- system: " + QSysInfo::prettyProductName().toUtf8() + ", " + kernel.sysname + ' '
        + kernel.release + ' ' + kernel.machine + "\n- packages: " + versions() + '\n';
}

}
