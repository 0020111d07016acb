#include "bench/desktop/rows/idlerow.h"

#include "bench/desktop/results.h"
#include "bench/desktop/trial.h"

#include <thread>

namespace Bench {

namespace {

constexpr std::chrono::seconds idleTime(10);

}

QByteArray IdleRow::method() const
{
    return "After one stroke, when the program has come to rest: context switches of all its "
           "threads and processor time within ten seconds. Programs of others once only, for "
           "time's "
           "sake.";
}

void IdleRow::measure(Trial& trial, Record& record) const
{
    trial.waitUntilReady();
    const QPoint start = trial.paper.center();
    trial.beginStroke(start);
    static_cast<void>(trial.drawWaiting(line(start, start + QPoint(100, 0))));
    trial.hand.release();
    trial.meter.waitForRest();
    const long switches = trial.meter.contextSwitches();
    const auto before = trial.meter.processorTime();
    std::this_thread::sleep_for(idleTime);
    record.add("wake-ups", static_cast<double>(trial.meter.contextSwitches() - switches));
    record.add("processor time, ms", milliseconds(trial.meter.processorTime() - before));
}

}
