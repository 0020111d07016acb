#include "tests/desktop/harness/sleep.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <ctime>
#include <limits>

#include <linux/futex.h>
#include <sys/syscall.h>
#include <sys/uio.h>

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

/// A time that a process keeps at an address, in seconds; no end of them where there is none.
time_t secondsAt(pid_t process, quint64 address)
{
    if (address == 0)
        return std::numeric_limits<time_t>::max();
    timespec time{};
    const iovec here{&time, sizeof time};
    const iovec there{reinterpret_cast<void*>(address), sizeof time};
    return process_vm_readv(process, &here, 1, &there, 1, 0) == sizeof time ? time.tv_sec : 0;
}

time_t now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return time.tv_sec;
}

bool waits(pid_t process, const SystemCall& call)
{
    constexpr time_t aWhile = 5;
    switch (call.number) {
#ifdef SYS_poll
    case SYS_poll: {
        const int milliseconds = static_cast<int>(call.arguments[2]);
        return milliseconds < 0 || milliseconds >= 1000 * aWhile;
    }
#endif
    case SYS_ppoll:
        return secondsAt(process, call.arguments[2]) >= aWhile;
    case SYS_futex: {
        const bool isRealTime = call.arguments[1] & FUTEX_CLOCK_REALTIME;
        return secondsAt(process, call.arguments[3])
            >= now(isRealTime ? CLOCK_REALTIME : CLOCK_MONOTONIC) + aWhile;
    }
    default:
        return false;
    }
}

}

bool sleeps(pid_t process)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    const QStringList all = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return !all.isEmpty() && std::all_of(all.begin(), all.end(), [&](const QString& thread) {
        return waits(process, systemCall(threads.filePath(thread)));
    });
}
