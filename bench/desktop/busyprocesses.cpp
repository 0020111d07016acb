#include "bench/desktop/busyprocesses.h"

namespace Bench {

BusyProcesses::BusyProcesses(int count)
{
    for (int number = 0; number < count; ++number)
        processes.push_back(std::make_unique<ChildProcess>(
            Command{.program = "/bin/sh", .arguments = {"-c", "while :; do :; done"}}));
}

}
