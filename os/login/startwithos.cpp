#include "os/login/startwithos.h"

#include "os/login/installedprogram.h"
#include "os/login/loginitems.h"

namespace osUtils::System {

bool startWithOS(const std::string& bundleId)
{
    const auto program = Login::installedProgram(bundleId);
    return program && indexForLoginItemWithPath(*program) != -1;
}

bool switchOsStartBehavior(const std::string& bundleId, const std::string& /*unused*/)
{
    const auto program = Login::installedProgram(bundleId);
    if (!program)
        return false;
    return startWithOS(bundleId) ? removeLoginItemWithPath(*program)
                                 : addLoginItemWithPath(*program, false);
}

}
