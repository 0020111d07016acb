#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <memory>
#include <vector>

namespace Bench {

/// Keeps processors busy, one process for each, as long as it lives.
class BusyProcesses {
public:
    explicit BusyProcesses(int count);

private:
    std::vector<std::unique_ptr<ChildProcess>> processes;
};

}
