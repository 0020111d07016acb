#include "action/frame/actionframe.h"
#include "action/toolbar/actiontoolbar.h"
#include "os/presentationmode.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>

namespace {

constexpr QSize paletteSize(305, 85);
constexpr QRect handle(4, 20, 32, 60); // inside what is left of a closed palette
constexpr QRect body(60, 10, 180, 60); // outside it
constexpr QSize otherSize(900, 500);

/// Changes its colour when pressed, its size on the key R, and opens a dialog on D. N and H
/// set the normal mode and the one that hides everything.
class ColourFrame : public VcAction::Frame::ActionFrame {
public:
    ColourFrame(int width, int height)
        : ActionFrame(nullptr, ScreenshotEngine, width, height)
    {
    }

    void draw(QPaintDevice* device) override
    {
        QPainter(device).fillRect(rect(), pressed ? Qt::yellow : Qt::magenta);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        pressed = !pressed;
        ActionFrame::mousePressEvent(event);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_R)
            resize(otherSize);
        else if (event->key() == Qt::Key_D)
            QMessageBox::information(this, QStringLiteral("Note"), QStringLiteral("To be closed."));
        else if (event->key() == Qt::Key_N)
            osUtils::System::setSystemUIMode(0, 0);
        else if (event->key() == Qt::Key_H)
            osUtils::System::setSystemUIMode(3, 0);
        else
            ActionFrame::keyPressEvent(event);
    }

private:
    bool pressed = false;
};

/// A palette that its handle closes and opens.
class ShutterPalette : public VcAction::Toolbar::ActionToolbar {
public:
    explicit ShutterPalette(QWidget* parent)
        : ActionToolbar(parent, paletteSize)
    {
        shutterHandle = new QPushButton(this);
        shutterHandle->setGeometry(handle);
        shutterHandle->setStyleSheet(QStringLiteral("background: red; border: 0px;"));
        connect(shutterHandle, SIGNAL(clicked()), this, SLOT(shutterOpenClose()));
        auto* content = new QWidget(this);
        content->setGeometry(body);
        content->setStyleSheet(QStringLiteral("background: blue;"));
        setFadingEnabled(false);
        enableShutter();
    }
};

}

/// A tool with a shutter, whose frame is of one colour.
/// Arguments: width and height of the frame in logical pixels; the whole screen if left out.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    ColourFrame frame(arguments.value(1).toInt(), arguments.value(2).toInt());
    frame.setToolbar(new ShutterPalette(&frame));
    frame.start();
    return QApplication::exec();
}
