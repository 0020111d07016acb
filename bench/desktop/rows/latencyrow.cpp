#include "bench/desktop/rows/latencyrow.h"

#include "bench/desktop/results.h"
#include "bench/desktop/statistics.h"
#include "bench/desktop/trial.h"

namespace Bench {

namespace {

constexpr int moves = 1000;
constexpr int step = 12; // pixels

}

QByteArray LatencyRow::method() const
{
    return "One stroke of 1,000 moves, 12 pixels apart, in lines over the whole width. After each "
           "move the pixel under the pointer is read in a tight loop until it has the pen's "
           "colour; the next move comes a millisecond after the last, as from the fastest common "
           "mice, or when its ink has come. Processor time is the program's own, in all threads, "
           "without the compositor's. Fifteen runs, of other annotation programs five.";
}

QList<QSize> LatencyRow::screens() const
{
    return {{1920, 1080}, {3840, 2160}, {7680, 2160}};
}

void LatencyRow::measure(Trial& trial, Record& record) const
{
    trial.waitUntilReady();
    const QList<QPoint> path = lines(trial.paper, moves + 1, step);
    trial.beginStroke(path.first());
    const auto before = trial.meter.processorTime();
    const QList<double> latencies = trial.drawWaiting(path.mid(1));
    const auto used = trial.meter.processorTime() - before;
    trial.hand.release();
    record.add("event to pixel, median, ms", median(latencies));
    record.add("event to pixel, p95, ms", quantile(latencies, 0.95));
    record.add("event to pixel, p99, ms", quantile(latencies, 0.99));
    record.add("event to pixel, longest, ms", largest(latencies));
    record.add("processor time per move, ms", milliseconds(used) / moves);
}

}
