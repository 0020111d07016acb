#include <QApplication>
#include <QScreen>
#include <QWidget>

/// The least that a Qt program can do: an empty window over the whole screen, in red.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    window.setPalette(QPalette(Qt::red));
    // The full-screen state is up to a window manager.
    window.setGeometry(QGuiApplication::primaryScreen()->geometry());
    window.show();
    return QApplication::exec();
}
