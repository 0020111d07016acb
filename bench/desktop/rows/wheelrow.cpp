#include "bench/desktop/rows/wheelrow.h"

#include "bench/desktop/cursorwatch.h"
#include "bench/desktop/results.h"
#include "bench/desktop/statistics.h"
#include "bench/desktop/trial.h"

namespace Bench {

namespace {

constexpr int turns = 100;

}

QByteArray WheelRow::method() const
{
    return "100 steps of the wheel, forth and back; from each to the server's notice that another "
           "cursor is shown. Of Korvel only: the others' wheel does something else.";
}

void WheelRow::measure(Trial& trial, Record& record) const
{
    trial.waitUntilReady();
    trial.hand.moveTo(trial.paper.center());
    trial.meter.waitForRest();
    CursorWatch cursor(trial.desktop.x);
    const auto before = trial.meter.processorTime();
    QList<double> latencies;
    for (int turn = 0; turn < turns; ++turn) {
        const Clock::time_point sent = Clock::now();
        trial.hand.turn(turn % 2 == 0 ? Hand::Wheel::TowardsUser : Hand::Wheel::AwayFromUser);
        latencies.append(milliseconds(cursor.waitForChange() - sent));
    }
    trial.meter.waitForRest();
    const auto used = trial.meter.processorTime() - before;
    record.add("wheel to cursor, median, ms", median(latencies));
    record.add("wheel to cursor, p95, ms", quantile(latencies, 0.95));
    record.add("processor time per step, ms", milliseconds(used) / turns);
}

}
