#include "pen/penframe.h"
#include "pen/pentoolbar.h"
#include "shell/fatalmessages.h"
#include "shell/lostserver.h"
#include "shell/norvikapplication.h"
#include "shell/penarguments.h"
#include "shell/storeonceshown.h"

#include <QSettings>

int main(int argc, char** argv)
{
    constexpr int freehand = 0;

    endQuietlyWithServer();
    endOnFatalMessages();
    QSettings settings("Varnholt", "Korvel");
    settings.setValue("langFile", "vellumcraft");
    settings.setValue("resourceFile", "vellumcraft.rcc");

    Helpers::NQt::NorvikApplication application(settings, argc, argv);
    // From here on a fatal message is a bug, which should leave a core dump.
    qInstallMessageHandler(nullptr);
    const PenArguments pen = penArguments(QCoreApplication::arguments());

    VcAction::Frame::PenFrame overlay(nullptr, pen.size, pen.color(), freehand, pen.transparent);
    // Owned by the overlay.
    overlay.setToolbar(new VcAction::Toolbar::PenToolbar(&overlay));
    const StoreOnceShown storing(settings, overlay);
    overlay.start(true);

    return QApplication::exec();
}
