#include "bench/desktop/rows/burstrow.h"

#include "bench/desktop/busyprocesses.h"
#include "bench/desktop/pointmap.h"
#include "bench/desktop/results.h"
#include "bench/desktop/trial.h"

#include <algorithm>
#include <optional>
#include <thread>

namespace Bench {

namespace {

constexpr int reach = 300; // the burst lies this near around its centre, pixels
constexpr double penRadius = 2.5; // pixels

double share(const QList<QPoint>& path, const PointMap& ink)
{
    const auto met =
        std::count_if(path.begin(), path.end(), [&](QPoint point) { return ink.contains(point); });
    return static_cast<double>(met) / static_cast<double>(path.size());
}

}

QByteArray BurstRow::name() const
{
    switch (condition) {
    case Condition::Loaded:
        return "burst-loaded";
    case Condition::Stopped:
        return "burst-stopped";
    case Condition::Quiet:
        break;
    }
    return "burst";
}

QByteArray BurstRow::method() const
{
    const QByteArray stroke =
        "A wavy spiral within 600 × 600 pixels is drawn in one second, its points sent at an even "
        "pace without waiting. Points on ink: sent points at which the screen has the pen's "
        "colour in the end. Largest distances: from any pixel of the sent path to the nearest "
        "ink, and from any ink to the sent path, less the pen's radius. Catching up: from the "
        "last event until its ink is seen.";
    switch (condition) {
    case Condition::Loaded:
        return stroke + " Meanwhile an endless loop runs for each processor.";
    case Condition::Stopped:
        return stroke
            + " The program is stopped (SIGSTOP) before and continued after the last event, from "
              "where catching up is counted.";
    case Condition::Quiet:
        break;
    }
    return stroke;
}

QList<QSize> BurstRow::screens() const
{
    if (condition == Condition::Quiet)
        return Row::screens();
    return {{1920, 1080}};
}

int BurstRow::runs(Annotator::Role role) const
{
    return condition == Condition::Quiet ? Row::runs(role) : runsWithPeersOnce(role);
}

double BurstRow::drawWithCatchUp(Trial& trial, const QList<QPoint>& path, int rate) const
{
    trial.beginStroke(path.first());
    std::optional<BusyProcesses> load;
    if (condition == Condition::Loaded)
        load.emplace(static_cast<int>(std::thread::hardware_concurrency()));
    if (condition == Condition::Stopped)
        trial.process.send(SIGSTOP);
    trial.hand.sweep(path.mid(1), rate);
    const Clock::time_point end = Clock::now();
    if (condition == Condition::Stopped)
        trial.process.send(SIGCONT);
    const Clock::time_point caughtUp = trial.probe.waitForInk(path.last());
    trial.hand.release();
    return milliseconds(caughtUp - end);
}

void BurstRow::measureBurst(Trial& trial, Record& record, QPoint centre, int rate) const
{
    const QPoint corner = centre - QPoint(reach, reach);
    const QList<QPoint> sent = spiral(centre, rate);
    const double catchUp = drawWithCatchUp(trial, sent, rate);
    trial.meter.waitForRest();

    const QRect area(corner, QSize(2 * reach, 2 * reach));
    const PointMap ink = PointMap::inkOf(trial.desktop.screen.grab(area));
    QList<QPoint> points;
    for (const QPoint point : sent)
        points.append(point - corner);
    PointMap path(area.size());
    const QList<QPoint> pathPixels =
        withoutGaps(QList<QPoint>{points.first() - Trial::LeadIn} + points);
    for (const QPoint pixel : pathPixels)
        path.add(pixel);

    const QByteArray pace = QByteArray::number(rate / 1000) + " kHz: ";
    record.add(pace + "points on ink, %", 100 * share(points, ink));
    record.add(pace + "path to ink, largest, px", ink.furthest(pathPixels));
    record.add(pace + "ink to path, largest, px",
               std::max(0.0, path.furthest(ink.points()) - penRadius));
    record.add(pace + "catching up, ms", catchUp);
}

void BurstRow::measure(Trial& trial, Record& record) const
{
    trial.waitUntilReady();
    const QPoint first = trial.paper.topLeft() + QPoint(reach, reach);
    measureBurst(trial, record, first, 1000);
    measureBurst(trial, record, first + QPoint(2 * reach + 20, 0), 2000);
}

}
