#include "action/frame/actionframe.h"
#include "action/toolbar/actiontoolbar.h"
#include "shell/norvikapplication.h"

#include <QResource>

/// A palette with two tabs on a frame that leaves the keyboard where it is. Argument: the distance
/// from one tab to the next in logical pixels; as it is at first if left out.
int main(int argc, char** argv)
{
    Helpers::NQt::NorvikApplication application("tabtool", argc, argv);
    QResource::registerResource(QStringLiteral("vellumcraft.rcc"));

    using VcAction::Frame::ActionFrame;
    ActionFrame frame(nullptr, ActionFrame::ScreenshotEngine, 0, 0);
    auto* palette = new VcAction::Toolbar::ActionToolbar(&frame, QSize(305, 85));
    palette->addTab(QStringLiteral("One"));
    palette->addTab(QStringLiteral("Two"));
    if (argc > 1)
        palette->setTabWidth(QCoreApplication::arguments().at(1).toInt());
    frame.setToolbar(palette);
    frame.start(false);
    return QApplication::exec();
}
