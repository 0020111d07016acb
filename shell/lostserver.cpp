#include "shell/lostserver.h"

#include <array>
#include <csignal>
#include <cstdlib>

#include <poll.h>
#include <unistd.h>

namespace {

struct sigaction faultAction { };

/// Whether the peer of one of the program's sockets is gone.
bool hasLostConnection()
{
    constexpr int afterStandardStreams = 3;
    std::array<pollfd, 64> files{};
    for (size_t i = 0; i < files.size(); ++i)
        files[i] = {afterStandardStreams + static_cast<int>(i), POLLRDHUP, 0};
    ::poll(files.data(), files.size(), 0);
    for (const pollfd& file : files) {
        if (file.revents & (POLLHUP | POLLRDHUP))
            return true;
    }
    return false;
}

void endOnFaultWithoutServer(int signal)
{
    if (hasLostConnection())
        ::_exit(EXIT_FAILURE);
    // The faulting instruction runs again when this returns.
    ::sigaction(signal, &faultAction, nullptr);
}

}

void endQuietlyWithServer()
{
    ::signal(SIGPIPE, SIG_IGN);
    struct sigaction action { };
    action.sa_handler = endOnFaultWithoutServer;
    ::sigaction(SIGSEGV, &action, &faultAction);
}
