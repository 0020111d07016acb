#pragma once

#include "shell/qtsingleapplication.h"

#include <QTranslator>

class QSettings;
class QSocketNotifier;

namespace Helpers::NQt {

/// The program's application object. Its constructor prepares what the rest relies on before the
/// first window: orderly exit on SIGTERM, working directory, translation, images and fonts.
///
/// What cannot be prepared is left out silently: the program starts and draws without it.
class NorvikApplication : public QtSingleApplication {
    Q_OBJECT

public:
    /// @param store  names the translation ("langFile") and the resource file ("resourceFile");
    ///               must outlive the application object
    NorvikApplication(QSettings& store, int& argc, char** argv);
    /// Without settings: no translation and no resource file.
    NorvikApplication(const QString& id, int& argc, char** argv);
    NorvikApplication(int& argc, char** argv, bool guiEnabled);
    ~NorvikApplication() override;

    /// Installs the SIGTERM handler.
    /// @return  0; 2 if the system call reports a failure by a positive number
    static int setup_unix_signal_handlers();

public slots:
    /// Takes the handler's byte from the socket and ends the event loop.
    void handleSigTerm();

private:
    void create();
    void createSignalPipe();
    void loadDictionary();
    void registerResources();
    void loadFonts();
    static void termSignalHandler(int signal);

    QSettings* settings = nullptr;
    QTranslator translator;
    QSocketNotifier* termNotifier = nullptr;

    /// A stream socket pair: the signal handler writes to the first, the event loop reads from the
    /// second. Never closed: a signal may come until the process has ended.
    static int sigtermFd[2];
};

}
