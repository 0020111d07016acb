#include "bench/desktop/annotators/korvel.h"

#include "bench/desktop/trial.h"

namespace Bench {

bool Korvel::isShown(const Trial& trial) const
{
    return trial.probe.isInk(Trial::RestingPoint)
        && trial.probe.colourAt(trial.desktop.palette.handle()) != Trial::Paper;
}

}
