#include "shell/fatalmessages.h"

#include <QString>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace {

QtMessageHandler printMessage = nullptr;

void endOnFatal(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type != QtFatalMsg) {
        printMessage(type, context, message);
        return;
    }
    const char* display = std::getenv("DISPLAY");
    std::fprintf(
        stderr, "%s: cannot start on the display \"%s\". It needs a running X11 desktop.\n%s\n",
        program_invocation_short_name, display ? display : "", message.toLocal8Bit().constData());
    std::_Exit(EXIT_FAILURE);
}

}

void endOnFatalMessages()
{
    printMessage = qInstallMessageHandler(endOnFatal);
}
