#include "tests/desktop/harness/childprocess.h"

#include "tests/desktop/harness/eventually.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <vector>

namespace {

constexpr int CannotStart = 127; // the shell's number for a program that cannot be run

/// The form that the kernel wants: pointers into the list, then a null. Valid as long as the list
/// is.
std::vector<char*> pointers(QList<QByteArray>& strings)
{
    std::vector<char*> result;
    for (QByteArray& string : strings)
        result.push_back(string.data());
    result.push_back(nullptr);
    return result;
}

QList<QByteArray> assignments(const Environment& environment)
{
    QList<QByteArray> result;
    for (auto entry = environment.begin(); entry != environment.end(); ++entry)
        result.append(entry.key() + '=' + entry.value());
    return result;
}

/// Holds all signals back as long as it lives.
class SignalsHeld {
public:
    SignalsHeld()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
    ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &before, nullptr); }

private:
    sigset_t before{};
};

/// QtTest catches deadly signals to print a stack; a child that has not become its command yet must
/// not do so.
void resetSignals()
{
    for (int signal = 1; signal < NSIG; ++signal)
        ::signal(signal, SIG_DFL);
    sigset_t none;
    ::sigemptyset(&none);
    ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

/// Runs in the forked child, where only calls that are safe in a signal handler are allowed.
[[noreturn]] void becomeCommand(const Command& command, char* const* arguments,
                                char* const* environment, int output, pid_t parent)
{
    resetSignals();
    ::prctl(PR_SET_PDEATHSIG, command.deathSignal);
    if (::getppid() != parent) // it died before the line above
        ::_exit(CannotStart);
    const rlimit noCoreDump{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCoreDump);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    if (command.keptDescriptor >= 0)
        ::fcntl(command.keptDescriptor, F_SETFD, 0);
    if (::chdir(command.workingDirectory.constData()) == 0)
        ::execve(command.program.constData(), arguments, environment);
    ::_exit(CannotStart);
}

}

ChildProcess::ChildProcess(const Command& command)
    : written(::memfd_create("output", MFD_CLOEXEC))
{
    QList<QByteArray> argumentTexts = QList<QByteArray>{command.program} + command.arguments;
    QList<QByteArray> environmentTexts = assignments(command.environment);
    const std::vector<char*> arguments = pointers(argumentTexts);
    const std::vector<char*> environment = pointers(environmentTexts);
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return;
    const osUtils::FileDescriptor reading{ends[0]};
    osUtils::FileDescriptor writing{ends[1]};
    const pid_t parent = ::getpid();
    const SignalsHeld untilTheChildIsReady;
    child = ::fork();
    if (child == 0)
        becomeCommand(command, arguments.data(), environment.data(), written.number(), parent);
    writing = {};
    char nothing = 0;
    static_cast<void>(::read(reading.number(), &nothing, 1)); // ends when the command takes over
}

ChildProcess::~ChildProcess()
{
    end();
}

int ChildProcess::status()
{
    if (child < 0)
        return CannotStart;
    int raw = 0;
    if (lastStatus == Running && ::waitpid(child, &raw, WNOHANG) == child)
        lastStatus = WIFSIGNALED(raw) ? 128 + WTERMSIG(raw) : WEXITSTATUS(raw);
    return lastStatus;
}

void ChildProcess::send(int signal)
{
    if (isRunning())
        ::kill(child, signal);
}

QByteArray ChildProcess::output() const
{
    struct stat information { };
    ::fstat(written.number(), &information);
    QByteArray text(information.st_size, Qt::Uninitialized);
    text.resize(qMax<ssize_t>(0, ::pread(written.number(), text.data(), text.size(), 0)));
    return text;
}

void ChildProcess::end()
{
    constexpr int politenessMs =
        2000; // enough to remove a lock file; a hung process gets no longer
    send(SIGCONT);
    send(SIGTERM);
    if (QTest::qWaitFor([this] { return !isRunning(); }, politenessMs))
        return;
    send(SIGKILL);
    static_cast<void>(eventually([this] { return !isRunning(); }));
}
