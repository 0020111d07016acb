#include "pen/penframe.h"
#include "pen/pentoolbar.h"
#include "shell/norvikapplication.h"
#include "shell/penarguments.h"

#include <QResource>

/// The pen with its shape chooser. Arguments: as the program's.
int main(int argc, char** argv)
{
    constexpr int freehand = 0;

    Helpers::NQt::NorvikApplication application("shapepen", argc, argv);
    QResource::registerResource(QStringLiteral("vellumcraft.rcc"));
    const PenArguments pen = penArguments(QCoreApplication::arguments());

    VcAction::Frame::PenFrame overlay(nullptr, pen.size, pen.color(), freehand, pen.transparent);
    auto* palette = new VcAction::Toolbar::PenToolbar(&overlay);
    palette->createShapeChooser();
    overlay.setToolbar(palette);
    overlay.start();
    return QApplication::exec();
}
