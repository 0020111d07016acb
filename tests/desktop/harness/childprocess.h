#pragma once

#include "windowsystem/filedescriptor.h"

#include <QByteArray>
#include <QList>
#include <QMap>

#include <csignal>
#include <sys/types.h>

using Environment = QMap<QByteArray, QByteArray>;

/// What to run and in which surroundings. Bytes throughout: arguments need not be valid text.
struct Command {
    QByteArray program;
    QList<QByteArray> arguments = {};
    Environment environment = {};
    QByteArray workingDirectory = "/";
    int keptDescriptor = -1; ///< stays open in the child, under the same number
    int deathSignal = SIGTERM; ///< sent by the kernel when the test itself dies
};

/// One started process, ended at the latest with this object, or by the kernel when the test
/// program is killed. Waiting for it is the caller's affair.
class ChildProcess {
public:
    static constexpr int Running = -1;

    /// Returns when the command has taken over the new process.
    explicit ChildProcess(const Command& command);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const { return child; }
    [[nodiscard]] bool isRunning() { return status() == Running; }

    /// As a shell tells it: the exit code, 128 + n after death by signal n, or Running.
    [[nodiscard]] int status();

    /// Sends a signal, unless the process has ended.
    void send(int signal);

    /// All that the process wrote so far, standard output and error stream together.
    [[nodiscard]] QByteArray output() const;

private:
    void end();

    osUtils::FileDescriptor written;
    pid_t child = -1;
    int lastStatus = Running;
};
