#include "shell/norvikapplication.h"

#include <QTimer>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool socketPairsFail = false;

void say(const char* line)
{
    std::puts(line);
    std::fflush(stdout);
}

/// Never comes back to the event loop.
void hang()
{
    while (true) {
        pause();
        say("interrupted");
    }
}

}

// Takes the place of the system's, for this program.
extern "C" int socketpair(int domain, int type, int protocol, int* descriptors) noexcept
{
    if (socketPairsFail) {
        errno = EMFILE;
        return -1;
    }
    return static_cast<int>(syscall(SYS_socketpair, domain, type, protocol, descriptors));
}

/// Tells how an application object takes signals. Arguments: "hang" to stay out of the event loop,
/// "no-pair" for a system that has no socket pair left, "no-pair-slot" for the slot's being called
/// there all the same.
int main(int argc, char** argv)
{
    const auto asked = [&](const char* word) { return argc > 1 && !std::strcmp(argv[1], word); };
    const bool hangs = asked("hang");
    const bool callsSlot = asked("no-pair-slot");
    socketPairsFail = asked("no-pair") || callsSlot;
    int status = 0;
    {
        Helpers::NQt::NorvikApplication application("probe", argc, argv);
        QTimer::singleShot(0, [&] {
            say("ready");
            if (hangs)
                hang();
            if (callsSlot)
                application.handleSigTerm();
        });
        status = QApplication::exec();
    }
    say("destroyed");
    return status;
}
