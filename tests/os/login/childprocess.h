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
        : parent(getpid())
        , pid(fork())
    {
        if (pid == 0)
            live(deed);
        // Without a child there is nobody to wait for, and above all nobody to kill: -1 is everybody.
        if (pid < 0) {
            isOver = true;
            status = failedStart;
        }
    }
    ~ChildProcess()
    {
        kill();
        wait();
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void kill() const
    {
        if (!isOver && pid > 0)
            ::kill(pid, SIGKILL);
    }
    /// Waits for the end.
    void wait()
    {
        if (!isOver)
            isOver = waitpid(pid, &status, 0) == pid;
    }
    [[nodiscard]] bool isRunning()
    {
        if (!isOver)
            isOver = waitpid(pid, &status, WNOHANG) == pid;
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
    // As of a child that exited with 1.
    static constexpr int failedStart = 1 << 8;

    [[noreturn]] void live(const std::function<bool()>& deed) const
    {
        // Ends with the test program, also when that is killed.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(1);
        // Without the ends of the test program, whose output would appear twice.
        _exit(deed() ? 0 : 1);
    }

    pid_t parent;
    pid_t pid;
    bool isOver = false;
    int status = 0;
};

}
