#pragma once

#include <functional>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {

/// A copy of this process that does one deed and ends, with the status 0 if the deed says true.
class ChildProcess {
public:
    explicit ChildProcess(const std::function<bool()>& deed)
        : pid(fork())
    {
        // Without the ends of the test program, whose output would appear twice.
        if (pid == 0)
            _exit(deed() ? 0 : 1);
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
        if (!isOver)
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
    pid_t pid;
    bool isOver = false;
    int status = 0;
};

}
