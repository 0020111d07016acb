#include "bench/desktop/annotators/emptywindow.h"

#include "bench/desktop/trial.h"

namespace Bench {

bool EmptyWindow::isShown(const Trial& trial) const
{
    return trial.probe.isInk(Trial::RestingPoint)
        && trial.probe.isInk(trial.desktop.screen.area().bottomRight());
}

}
