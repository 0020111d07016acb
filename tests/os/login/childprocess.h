#pragma once

#include <functional>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {

/// A copy of this process that does one deed and ends, with the status 0 if the deed says true.
class ChildProcess {
public:
    explicit ChildProcess(const std::function<bool()>& deed)
        : pid(fork())
    {
        if (pid == 0) {
            // Ends with the test program, also when that is killed.
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            // Without the ends of the test program, whose output would appear twice.
            _exit(deed() ? 0 : 1);
        }
    }
    ~ChildProcess()
    {
        // Without a child there is nobody to kill: -1 is everybody.
        if (isRunning())
            ::kill(pid, SIGKILL);
        wait();
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] bool isRunning()
    {
        wait(WNOHANG);
        return !isOver;
    }
    /// Whether the deed was done and said true.
    [[nodiscard]] bool hasSucceeded()
    {
        wait();
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    [[nodiscard]] bool wasKilled()
    {
        wait();
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

private:
    void wait(int options = 0)
    {
        if (!isOver)
            isOver = waitpid(pid, &status, options) == pid;
    }

    const pid_t pid;
    bool isOver = pid < 0;
    int status = 1 << 8; // as of a child that exited with 1, if none could be made
};

}
