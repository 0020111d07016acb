#pragma once

#include <chrono>
#include <sys/types.h>

namespace Bench {

/// What the kernel counts for one process, with all its threads.
class ProcessMeter {
public:
    explicit ProcessMeter(pid_t measured)
        : process(measured)
    {
    }

    /// Processor time since the start, in the program and in the kernel for it.
    [[nodiscard]] std::chrono::nanoseconds processorTime() const;
    /// How often its present threads went to sleep or were interrupted.
    [[nodiscard]] long contextSwitches() const;
    /// Memory in MiB; what is shared with other processes counts in parts.
    [[nodiscard]] double proportionalMemory() const;

    /// Returns when the process has worked through all that it was sent: it has next to no work for
    /// a tenth of a second.
    void waitForRest() const;

private:
    const pid_t process;
};

}
