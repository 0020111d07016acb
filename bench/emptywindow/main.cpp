#include <QApplication>
#include <QWidget>

/// The least that a program of the toolkit can do: an empty window over the whole screen, in red.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    window.setPalette(QPalette(Qt::red));
    window.showFullScreen();
    return QApplication::exec();
}
