#include "action/frame/actionframe.h"

#include <QApplication>

/// A tool's frame of a given size, without palette or pen.
/// Arguments: width and height in logical pixels.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    using VcAction::Frame::ActionFrame;
    ActionFrame frame(nullptr, ActionFrame::ScreenshotEngine, arguments.value(1).toInt(),
                      arguments.value(2).toInt());
    frame.start();
    return QApplication::exec();
}
