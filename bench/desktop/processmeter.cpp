#include "bench/desktop/processmeter.h"

#include "bench/desktop/clock.h"
#include "bench/desktop/failure.h"

#include <QDir>
#include <QFile>

#include <ctime>
#include <thread>

namespace Bench {

namespace {

using namespace std::chrono_literals;

/// The sum of the numbers that follow the key, in all lines that begin with it.
long sumOf(const QByteArray& key, const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return 0;
    long sum = 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key + ':'))
            sum += line.mid(key.size() + 1).simplified().split(' ').first().toLong();
    }
    return sum;
}

}

std::chrono::nanoseconds ProcessMeter::processorTime() const
{
    clockid_t clock{};
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
        throw Failure("the program has ended");
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

long ProcessMeter::contextSwitches() const
{
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(process));
    long sum = 0;
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString status = tasks.filePath(task + QStringLiteral("/status"));
        sum += sumOf("voluntary_ctxt_switches", status);
        sum += sumOf("nonvoluntary_ctxt_switches", status);
    }
    return sum;
}

double ProcessMeter::proportionalMemory() const
{
    return static_cast<double>(sumOf("Pss", QStringLiteral("/proc/%1/smaps_rollup").arg(process)))
        / 1024;
}

void ProcessMeter::waitForRest() const
{
    constexpr auto restfulTime = 100ms;
    constexpr auto nextToNoWork = 300us;
    const Clock::time_point end = Clock::now() + LongestWait;
    for (auto before = processorTime(); Clock::now() < end;) {
        std::this_thread::sleep_for(restfulTime);
        const auto now = processorTime();
        if (now - before < nextToNoWork)
            return;
        before = now;
    }
    throw Failure("the program does not come to rest");
}

}
