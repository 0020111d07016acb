#include "tests/desktop/harness/virtualserver.h"

#include "tests/desktop/harness/eventually.h"

#include <fcntl.h>
#include <poll.h>

namespace {

/// What comes through the pipe up to the end of the line, or nothing when the patience runs out.
QByteArray readLine(const FileDescriptor& pipe)
{
    QByteArray line;
    pollfd readable{pipe.get(), POLLIN, 0};
    while (!line.endsWith('\n')) {
        char byte = 0;
        if (::poll(&readable, 1, static_cast<int>(patience().count())) != 1
            || ::read(pipe.get(), &byte, 1) != 1)
            return {};
        line += byte;
    }
    return line.trimmed();
}

}

VirtualServer::VirtualServer(QSize screen)
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return;
    const FileDescriptor reading{ends[0]};
    FileDescriptor writing{ends[1]};
    const QByteArray mode =
        QByteArray::number(screen.width()) + 'x' + QByteArray::number(screen.height()) + "x24";
    server = std::make_unique<ChildProcess>(Command{
        .program = "/usr/bin/Xvfb",
        .arguments = {"-displayfd", QByteArray::number(writing.get()), "-screen", "0", mode, "-dpi",
                      "96", "-r", "-noreset", "-nolisten", "tcp"},
        .environment = {{"PATH", qgetenv("PATH")}, {"LC_ALL", "C.UTF-8"}},
        .keptDescriptor = writing.get(),
    });
    writing.close(); // so that reading ends when the server dies
    const QByteArray number = readLine(reading);
    if (!number.isEmpty())
        displayName = ':' + number;
}
