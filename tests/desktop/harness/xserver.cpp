#include "tests/desktop/harness/xserver.h"

#include "tests/desktop/harness/eventually.h"

#include <QFile>

#include <fcntl.h>
#include <poll.h>

namespace {

/// What comes through the pipe up to the end of the line, or nothing when the patience runs out.
QByteArray readLine(const osUtils::FileDescriptor& pipe)
{
    QByteArray line;
    pollfd readable{pipe.number(), POLLIN, 0};
    while (!line.endsWith('\n')) {
        char byte = 0;
        if (::poll(&readable, 1, static_cast<int>(patience().count())) != 1
            || ::read(pipe.number(), &byte, 1) != 1)
            return {};
        line += byte;
    }
    return line.trimmed();
}

}

XServer::XServer(const QByteArray& program, const QList<QByteArray>& arguments)
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return;
    const osUtils::FileDescriptor reading{ends[0]};
    osUtils::FileDescriptor writing{ends[1]};
    const QList<QByteArray> common{
        "-displayfd", QByteArray::number(writing.number()), "-noreset", "-nolisten", "tcp", "-r"};
    server = std::make_unique<ChildProcess>(Command{
        .program = program,
        .arguments = common + arguments,
        .environment = {{"PATH", qgetenv("PATH")}, {"LC_ALL", "C.UTF-8"}},
        .keptDescriptor = writing.number(),
    });
    writing = {}; // so that reading ends when the server dies
    const QByteArray number = readLine(reading);
    if (!number.isEmpty())
        displayName = ':' + number;
}

void XServer::kill()
{
    server->send(SIGKILL);
    static_cast<void>(eventually([this] { return !server->isRunning(); }));
    const QString number = QString::fromLatin1(displayName.mid(1));
    QFile::remove("/tmp/.X11-unix/X" + number);
    QFile::remove("/tmp/.X" + number + "-lock");
}
