#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

/// Programs for the tests to find. All are ended by their owner, at the latest with the test.
namespace TestSupport {

/// The stem with this test's process id, so that no other test run has a process of the same name.
inline QByteArray ownName(const QByteArray& stem)
{
    return stem + QByteArray::number(::getpid(), 36);
}

/// The stem as ownName(), filled up to a length.
inline QByteArray ownName(const QByteArray& stem, int length)
{
    return ownName(stem).leftJustified(length, 'x');
}

/// A copy of a program that waits, under a name of one's own.
class ProgramFile {
public:
    explicit ProgramFile(const QByteArray& name)
        : file(QFile::encodeName(folder.path()) + '/' + name)
    {
        std::filesystem::copy_file("/usr/bin/sleep", file.constData());
    }

    ProgramFile(const ProgramFile&) = delete;
    ProgramFile& operator=(const ProgramFile&) = delete;
    // Qt cannot remove a file whose name is no text.
    ~ProgramFile() { ::unlink(file.constData()); }

    [[nodiscard]] const QByteArray& path() const { return file; }
    [[nodiscard]] Command command() const { return {.program = file, .arguments = {"infinity"}}; }

private:
    QTemporaryDir folder;
    QByteArray file;
};

/// Started at once, runs until it is ended with this object.
class RunningProgram {
public:
    explicit RunningProgram(const QByteArray& name)
        : file(name)
        , process(file.command())
    {
    }

    [[nodiscard]] int id() const { return process.pid(); }
    [[nodiscard]] const QByteArray& path() const { return file.path(); }

private:
    ProgramFile file;
    ChildProcess process;
};

/// A program that calls itself by a name, whatever its file is called.
inline Command renamed(const QByteArray& name)
{
    return {.program = NAMED_PROCESS, .arguments = {name, "wait"}};
}

/// A process that has ended, and whose parent has not taken notice for as long as this object
/// lives.
class Zombie {
public:
    explicit Zombie(const QByteArray& name)
        : process({.program = NAMED_PROCESS, .arguments = {name, "end"}})
    {
        siginfo_t ended{};
        ::waitid(P_PID, static_cast<id_t>(process.pid()), &ended, WEXITED | WNOWAIT);
    }

    [[nodiscard]] int id() const { return process.pid(); }

private:
    ChildProcess process;
};

/// The id of a process that has ended and is gone.
inline int goneProcess()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

}
