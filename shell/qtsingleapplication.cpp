#include "shell/qtsingleapplication.h"

QtSingleApplication::QtSingleApplication(const QString& id, int& argc, char** argv)
    : QApplication(argc, argv)
    , applicationId(id)
{
}

QtSingleApplication::QtSingleApplication(int& argc, char** argv, bool /*guiEnabled*/)
    : QApplication(argc, argv)
    , applicationId(applicationFilePath())
{
}
