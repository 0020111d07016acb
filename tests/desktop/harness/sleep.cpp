#include "tests/desktop/harness/sleep.h"

#include <QDir>
#include <QFile>

#include <algorithm>

#include <sys/syscall.h>

namespace {

/// A thread's system call as the kernel shows it: its number, its six arguments, and more.
struct SystemCall {
    long number = -1;
    QList<quint64> arguments;
};

/// One with the number -1 for a thread that runs or has ended.
SystemCall systemCall(const QString& thread)
{
    QFile file(thread + QStringLiteral("/syscall"));
    if (!file.open(QFile::ReadOnly))
        return {};
    const QByteArrayList fields = file.readAll().simplified().split(' ');
    if (fields.size() < 7)
        return {};
    SystemCall call{fields.first().toLong(), {}};
    for (const QByteArray& field : fields.mid(1, 6))
        call.arguments += field.toULongLong(nullptr, 16);
    return call;
}

bool waitsWithoutALimit(const SystemCall& call)
{
    switch (call.number) {
#ifdef SYS_poll
    case SYS_poll:
        return static_cast<int>(call.arguments[2]) < 0;
#endif
    case SYS_ppoll:
        return call.arguments[2] == 0;
    case SYS_futex:
        return call.arguments[3] == 0;
    default:
        return false;
    }
}

}

bool sleepsUntilCalled(pid_t process)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    const QStringList all = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return !all.isEmpty() && std::all_of(all.begin(), all.end(), [&](const QString& thread) {
        return waitsWithoutALimit(systemCall(threads.filePath(thread)));
    });
}
