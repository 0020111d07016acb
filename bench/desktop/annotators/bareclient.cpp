#include "bench/desktop/annotators/bareclient.h"

#include "bench/desktop/trial.h"

namespace Bench {

bool BareClient::isShown(const Trial& trial) const
{
    return trial.probe.isInk(Trial::RestingPoint);
}

}
