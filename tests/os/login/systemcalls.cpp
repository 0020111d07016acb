#include "tests/os/login/systemcalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace TestSupport {

SystemCallPlan systemCallPlan;

namespace {

void passMoment()
{
    if (systemCallPlan.killedAt >= 0 && systemCallPlan.killedAt-- == 0)
        ::kill(getpid(), SIGKILL);
}

bool isToFail(const char* call)
{
    if (systemCallPlan.failingCall != call || systemCallPlan.failures == 0)
        return false;
    if (systemCallPlan.successes > 0) {
        --systemCallPlan.successes;
        return false;
    }
    --systemCallPlan.failures;
    errno = systemCallPlan.error;
    return true;
}

template <typename... Arguments> long pass(const char* name, long number, Arguments... arguments)
{
    if (isToFail(name))
        return -1;
    passMoment();
    const long result = syscall(number, arguments...);
    const int error = errno;
    passMoment();
    errno = error;
    return result;
}

}

}

using TestSupport::pass;

// These take the places of the system's, for this program.
extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(arguments, int) : 0;
    va_end(arguments);
    const char* const name = (flags & O_ACCMODE) == O_WRONLY ? "open" : "open to read";
    return static_cast<int>(pass(name, SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t write(int file, const void* bytes, size_t size)
{
    // In two halves, so that there is a moment between them.
    const size_t half = TestSupport::systemCallPlan.killedAt >= 0 ? (size + 1) / 2 : size;
    return pass("write", SYS_write, file, bytes, half);
}

int fsync(int file)
{
    return static_cast<int>(pass("fsync", SYS_fsync, file));
}

int linkat(int from, const char* oldPath, int to, const char* newPath, int flags) noexcept
{
    return static_cast<int>(pass("linkat", SYS_linkat, from, oldPath, to, newPath, flags));
}

int rename(const char* oldPath, const char* newPath) noexcept
{
    return static_cast<int>(pass("rename", SYS_renameat2, AT_FDCWD, oldPath, AT_FDCWD, newPath, 0));
}

int unlink(const char* path) noexcept
{
    return static_cast<int>(pass("unlink", SYS_unlinkat, AT_FDCWD, path, 0));
}
}
