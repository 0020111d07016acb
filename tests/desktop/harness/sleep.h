#pragma once

#include <sys/types.h>

/// Whether every thread of a process, one's own child, sleeps until something happens: none runs, and none has set
/// itself a time to wake up at.
[[nodiscard]] bool sleepsUntilCalled(pid_t process);
