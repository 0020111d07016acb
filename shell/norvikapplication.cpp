#include "shell/norvikapplication.h"

#include "shell/resourcefile.h"

#include <QDir>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QResource>
#include <QSettings>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

#include <sys/socket.h>
#include <unistd.h>

namespace Helpers::NQt {

namespace {

/// Makes a relative path in an environment variable independent of the working directory.
void makeAbsolute(const char* variable)
{
    const QByteArray path = qgetenv(variable);
    std::error_code unknown;
    const auto absolute = std::filesystem::absolute(path.toStdString(), unknown);
    if (!path.isEmpty() && !unknown)
        qputenv(variable, absolute.c_str());
}

bool registerWhole(const QString& resourceFile)
{
    return isWholeResourceFile(resourceFile) && QResource::registerResource(resourceFile);
}

}

int NorvikApplication::sigtermFd[2] = {0, 0};

NorvikApplication::NorvikApplication(QSettings& store, int& argc, char** argv)
    : QtSingleApplication(store.applicationName(), argc, argv)
    , settings(&store)
{
    create();
}

NorvikApplication::NorvikApplication(const QString& id, int& argc, char** argv)
    : QtSingleApplication(id, argc, argv)
{
    create();
}

NorvikApplication::NorvikApplication(int& argc, char** argv, bool guiEnabled)
    : QtSingleApplication(argc, argv, guiEnabled)
{
    create();
}

NorvikApplication::~NorvikApplication() = default;

void NorvikApplication::create()
{
    createSignalPipe();
    setup_unix_signal_handlers();
    if (termNotifier)
        connect(termNotifier, SIGNAL(activated(int)), this, SLOT(handleSigTerm()));
    // Further connections to the X server are made from the new working directory.
    makeAbsolute("XAUTHORITY");
    QDir::setCurrent(applicationDirPath());
    loadDictionary();
    registerResources();
    loadFonts();
}

void NorvikApplication::createSignalPipe()
{
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, sigtermFd) == 0)
        termNotifier = new QSocketNotifier(sigtermFd[1], QSocketNotifier::Read, this);
}

int NorvikApplication::setup_unix_signal_handlers()
{
    struct sigaction action { };
    action.sa_handler = termSignalHandler;
    sigemptyset(&action.sa_mask);
    // All flags, among them the one that restarts interrupted calls and the one that removes the
    // handler after its first run, so that a second SIGTERM ends a program that hangs.
    action.sa_flags = -1;
    return sigaction(SIGTERM, &action, nullptr) > 0 ? 2 : 0;
}

void NorvikApplication::termSignalHandler(int /*signal*/)
{
    const int interruptedError = errno;
    const char byte = 1;
    // If the write fails there is nothing that a signal handler could do about it.
    [[maybe_unused]] const ssize_t written = ::write(sigtermFd[0], &byte, sizeof(byte));
    errno = interruptedError;
}

void NorvikApplication::handleSigTerm()
{
    if (!termNotifier) {
        quit();
        return;
    }
    termNotifier->setEnabled(false);
    char byte = 0;
    [[maybe_unused]] const ssize_t taken = ::read(sigtermFd[1], &byte, sizeof(byte));
    quit();
    termNotifier->setEnabled(true);
}

void NorvikApplication::loadDictionary()
{
    if (!settings || settings->value("langFile", QString()).toString().isEmpty())
        return;
    const QString name = settings->value("langFile").toString();
    if (!translator.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath), QString(),
                         QString())) {
        // Without a file of this name the interface is not translated.
        [[maybe_unused]] const bool found =
            translator.load(name, QDir::current().absolutePath(), QString(), QString());
    }
    installTranslator(&translator);
}

void NorvikApplication::registerResources()
{
    if (!settings || settings->value("resourceFile", "").toString().isEmpty())
        return;
    const QString name = settings->value("resourceFile").toString();
    if (!registerWhole(QLibraryInfo::path(QLibraryInfo::DataPath) + '/' + name))
        registerWhole(name);
}

void NorvikApplication::loadFonts()
{
    QDir fonts(QLibraryInfo::path(QLibraryInfo::PrefixPath) + "/Fonts");
    if (!fonts.exists())
        fonts = QDir::current();
    if (!fonts.exists())
        return;
    for (const QString& name : fonts.entryList({"*"}, QDir::Files, QDir::NoSort))
        QFontDatabase::addApplicationFont(fonts.absolutePath() + '/' + name);
}

}
