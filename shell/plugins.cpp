#include "shell/plugins.h"

#include <QApplication>

void loadNoMorePlugins()
{
    QApplication::style(); // else it would be loaded for the first widget
    QCoreApplication::setLibraryPaths({});
}
