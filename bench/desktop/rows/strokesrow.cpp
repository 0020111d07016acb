#include "bench/desktop/rows/strokesrow.h"

#include "bench/desktop/results.h"
#include "bench/desktop/trial.h"

namespace Bench {

namespace {

constexpr int few = 500;
constexpr int many = 5000;
constexpr int timedStrokes = 50;
constexpr int strokeMoves = 10;
constexpr int step = 2; // pixels

void drawStrokes(const Trial& trial, int from, int to)
{
    for (int number = from; number < to; ++number) {
        const QPoint start = strokeStart(trial.paper, number);
        trial.hand.moveTo(start);
        trial.hand.press();
        for (int move = 1; move <= strokeMoves; ++move)
            trial.hand.moveTo(start + QPoint(move * step, 0));
        trial.probe.waitForInk(start + QPoint(strokeMoves * step, 0));
        trial.hand.release();
    }
    trial.meter.waitForRest();
}

double timePerStroke(const Trial& trial, int from)
{
    const auto before = trial.meter.processorTime();
    drawStrokes(trial, from, from + timedStrokes);
    return milliseconds(trial.meter.processorTime() - before) / timedStrokes;
}

}

QByteArray StrokesRow::method() const
{
    return "Strokes of ten moves, 20 pixels long, each on clean paper and each waited for. "
           "Processor time is that of the last 50 of 500 and of 5,000 strokes. Memory is "
           "proportional (Pss). Programs of others once only, and up to 500 strokes, for time's "
           "sake.";
}

void StrokesRow::measure(Trial& trial, Record& record) const
{
    trial.waitUntilReady();
    record.add("memory after the start, MiB", trial.meter.proportionalMemory());
    drawStrokes(trial, 0, few - timedStrokes);
    record.add("processor time per stroke after 500, ms", timePerStroke(trial, few - timedStrokes));
    record.add("memory after 500 strokes, MiB", trial.meter.proportionalMemory());
    if (trial.annotator.role() == Annotator::Role::Peer)
        return;
    drawStrokes(trial, few, many - timedStrokes);
    record.add("processor time per stroke after 5,000, ms",
               timePerStroke(trial, many - timedStrokes));
    record.add("memory after 5,000 strokes, MiB", trial.meter.proportionalMemory());
}

}
