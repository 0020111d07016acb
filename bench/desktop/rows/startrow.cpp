#include "bench/desktop/rows/startrow.h"

#include "bench/desktop/results.h"
#include "bench/desktop/trial.h"

namespace Bench {

QByteArray StartRow::method() const
{
    return "From just before exec; the screen is looked at twice a millisecond. First picture: the "
           "pen's dot under the pointer and the palette are seen (bare client: the dot; empty "
           "window: its colour; flameshot: the dimmed screen; gromit-mpx shows nothing). First "
           "stroke: from the first picture on a line is tried every 20 ms, until its ink stays "
           "behind the pointer; in flameshot one selects first. Processor time is that up to the "
           "rest after the start. One start before the first is not counted. Fifteen runs, "
           "of other annotation programs five: a start is short, and whatever else the machine "
           "does shows.";
}

QList<QSize> StartRow::screens() const
{
    return {{1920, 1080}, {3840, 2160}, {7680, 2160}};
}

void StartRow::measure(Trial& trial, Record& record) const
{
    if (trial.annotator.showsItself())
        record.add("exec to first picture, ms",
                   milliseconds(trial.waitUntilShown() - trial.started));
    if (trial.annotator.drawsAtOnce())
        record.add("exec to first stroke, ms",
                   milliseconds(trial.drawFirstStroke() - trial.started));
    trial.meter.waitForRest();
    record.add("processor time, ms", milliseconds(trial.meter.processorTime()));
}

}
