#pragma once

#include <sys/types.h>

/// Whether every thread of a process, one's own child, sleeps until something happens: none runs,
/// and none has set itself a time to wake up at within the next seconds. (Half a minute after it
/// was last used Qt looks once through its cache of pixmaps.)
[[nodiscard]] bool sleeps(pid_t process);
