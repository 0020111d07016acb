#include "bench/desktop/rows/faderow.h"

#include "bench/desktop/results.h"
#include "bench/desktop/statistics.h"
#include "bench/desktop/trial.h"

namespace Bench {

namespace {

using namespace std::chrono_literals;

constexpr int moves = 150;
constexpr int step = 6; // pixels
constexpr auto fadeTime = 250ms; // of the fade's 300 ms, those that are certainly within it
constexpr auto restfulTime = 150ms;

/// Draws from the first point on until the time has passed or the points are used up.
QList<double> drawFor(const Trial& trial, const QList<QPoint>& path, Clock::duration time)
{
    const Clock::time_point end = Clock::now() + time;
    trial.beginStroke(path.first());
    QList<double> latencies;
    for (qsizetype next = 1; next < path.size() && Clock::now() < end; ++next)
        latencies += trial.drawWaiting({path.at(next)});
    trial.hand.release();
    return latencies;
}

}

QByteArray FadeRow::method() const
{
    return "The pointer leaves the palette, which fades out within 300 ms. Processor time is the "
           "program's, from leaving to the rest after it, with nothing drawn. Drawing during the "
           "fade: up to 150 moves in its first 250 ms, timed as in the row latency, beside as "
           "many on a palette at rest.";
}

void FadeRow::fadeIn(const Trial& trial) const
{
    trial.hand.moveTo(trial.desktop.palette.background());
    trial.probe.waitForRest(trial.desktop.palette.handle(), restfulTime);
    trial.meter.waitForRest();
}

void FadeRow::measure(Trial& trial, Record& record) const
{
    const QPoint handle = trial.desktop.palette.handle();
    const QList<QPoint> path = lines(trial.paper, 2 * moves, step);
    trial.waitUntilReady();

    fadeIn(trial);
    const auto before = trial.meter.processorTime();
    const Clock::time_point left = Clock::now();
    trial.hand.moveTo(trial.paper.center());
    const Clock::time_point faded = trial.probe.waitForRest(handle, restfulTime);
    trial.meter.waitForRest();
    const auto used = trial.meter.processorTime() - before;

    const QList<double> atRest = drawFor(trial, path.first(moves), 10s);
    fadeIn(trial);
    const QList<double> fading = drawFor(trial, path.last(moves), fadeTime);
    record.add("fade, from leaving to last step, ms", milliseconds(faded - left));
    record.add("processor time of one fade, ms", milliseconds(used));
    record.add("event to pixel at rest, median, ms", median(atRest));
    record.add("event to pixel during the fade, median, ms", median(fading));
    record.add("event to pixel during the fade, p95, ms", quantile(fading, 0.95));
    record.add("median during the fade ÷ at rest", median(fading) / median(atRest));
}

}
