#include "examples/liveboard/boardframe.h"
#include "examples/liveboard/boardtoolbar.h"
#include "shell/fatalmessages.h"
#include "shell/lostserver.h"
#include "shell/norvikapplication.h"
#include "windowsystem/windowsystem.h"

#include <QResource>

#include <cstdio>

int main(int argc, char** argv)
{
    endQuietlyWithServer();
    endOnFatalMessages();
    Helpers::NQt::NorvikApplication application("Liveboard", argc, argv);
    qInstallMessageHandler(nullptr);
    QResource::registerResource("vellumcraft.rcc");

    const auto& windowSystem = Windowing::WindowSystem::ofSession();
    if (!windowSystem.hasCompositor()) {
        std::fputs("liveboard: the desktop cannot show through a window here, since no compositor"
                   " is running. Start one, such as picom.\n",
                   stderr);
        return EXIT_FAILURE;
    }

    LiveBoard::BoardFrame board;
    // Owned by the board.
    board.setToolbar(new LiveBoard::BoardToolbar(board));
    // Without the desktop behind it, the board would be black.
    QObject::connect(&windowSystem, SIGNAL(compositorEnded()), &board, SLOT(closeAction()));
    board.start();
    return QApplication::exec();
}
