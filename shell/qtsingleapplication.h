#pragma once

#include <QApplication>

/// An application object that carries the id under which its instances could find each other. It
/// does not act on the id: every start is an instance of its own.
class QtSingleApplication : public QApplication {
    Q_OBJECT

public:
    QtSingleApplication(const QString& id, int& argc, char** argv)
        : QApplication(argc, argv)
        , applicationId(id)
    {
    }
    /// The id is the path of the executable.
    /// The flag is accepted for programs that run without windows; windows work regardless.
    QtSingleApplication(int& argc, char** argv, bool /*guiEnabled*/ = true)
        : QApplication(argc, argv)
        , applicationId(applicationFilePath())
    {
    }

    [[nodiscard]] QString id() const { return applicationId; }

private:
    QString applicationId;
};
