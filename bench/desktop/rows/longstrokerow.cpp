#include "bench/desktop/rows/longstrokerow.h"

#include "bench/desktop/results.h"
#include "bench/desktop/statistics.h"
#include "bench/desktop/trial.h"

namespace Bench {

namespace {

constexpr int moves = 20'000;
constexpr int timedMoves = 200;
constexpr int movesAtOnce = 100;
constexpr int step = 6; // pixels

}

QByteArray LongStrokeRow::method() const
{
    return "One stroke of 20,000 moves, 6 pixels apart. The first and the last 200 are timed as in "
           "the row latency; those between are sent a hundred at once, waiting for the ink of "
           "each hundredth. Programs of others once only, for time's sake.";
}

void LongStrokeRow::measure(Trial& trial, Record& record) const
{
    trial.waitUntilReady();
    const QList<QPoint> path = lines(trial.paper, moves + 1, step);
    trial.beginStroke(path.first());
    const QList<double> early = trial.drawWaiting(path.mid(1, timedMoves));
    const QList<QPoint> between = path.mid(1 + timedMoves, moves - 2 * timedMoves);
    for (qsizetype sent = 0; sent < between.size(); sent += movesAtOnce) {
        const QList<QPoint> part = between.mid(sent, movesAtOnce);
        trial.hand.rush(part);
        trial.probe.waitForInk(part.last());
    }
    const QList<double> late = trial.drawWaiting(path.last(timedMoves));
    trial.hand.release();
    record.add("first 200 moves, median, ms", median(early));
    record.add("last 200 moves, median, ms", median(late));
    record.add("last ÷ first", median(late) / median(early));
}

}
