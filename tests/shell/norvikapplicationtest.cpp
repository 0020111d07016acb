#include "shell/norvikapplication.h"

#include "tests/desktop/harness/childprocess.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/home.h"
#include "tests/support/testprogram.h"

#include <QDir>
#include <QFile>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSettings>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <csignal>

#include <poll.h>

using Helpers::NQt::NorvikApplication;

namespace {

/// What main is given.
struct CommandLine {
    char name[7] = "korvel";
    char* arguments[2] = {name, nullptr};
    int count = 1;
};

struct sigaction actionOf(int signal)
{
    struct sigaction action { };
    ::sigaction(signal, nullptr, &action);
    return action;
}

bool isDefault(int signal)
{
    return actionOf(signal).sa_handler == SIG_DFL;
}

/// Whether the process has no handler for a signal, as the kernel tells it.
bool isDefaultIn(pid_t process, int signal)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("SigCgt:"))
            return !(line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1);
    }
    return false;
}

/// Runs the event loop, in which the process gets a SIGTERM; gives the loop's result.
int resultOfTermination()
{
    constexpr int neverEnded = 99;
    QTimer::singleShot(0, [] { ::raise(SIGTERM); });
    QTimer::singleShot(std::chrono::seconds(10), qApp, [] { QCoreApplication::exit(neverEnded); });
    return QApplication::exec();
}

Command probe(const Home& home, const QByteArray& argument = {})
{
    Environment environment = home.environment({});
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    return {.program = SIGNAL_PROBE, .arguments = {argument}, .environment = environment};
}

constexpr int killedBy(int signal)
{
    return 128 + signal;
}

}

/// The application object: what it is, and how it ends.
class NorvikApplicationTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void itsMetaObjectHasOneSlot();
    void theSettingsNameTheApplication();
    void anIdIsKept();
    void withoutAnIdItIsTheProgramsPath();
    void itsFolderIsTheWorkingDirectory();
    void theAuthorityFileIsFoundFromThere_data();
    void theAuthorityFileIsFoundFromThere();
    void theSettingsAreNotTouched();

    void terminationEndsTheLoopInOrder();
    void theActionIsGoneAfterTheFirstSignal();
    void itEndsAgainAfterTheHandlerIsBack();
    void theActionRestartsCallsAndBlocksNothing();
    void theActionIsInstalledAnyTime();
    void otherSignalsKeepTheirActions_data();
    void otherSignalsKeepTheirActions();

    void aTerminatedProgramIsTakenDownInOrder();
    void aSecondSignalKillsAProgramThatHangs();
    void aSignalThatIsNotHandledKills_data();
    void aSignalThatIsNotHandledKills();
    void withoutASocketPairTheFirstSignalIsSwallowed();
    void withoutASocketPairItsSlotStillEndsTheProgram();
    void twoProgramsRunSideBySide();

private:
    QTemporaryDir folder;
    QString startFolder = QDir::currentPath();
    struct sigaction actionBefore { };
    const QByteArray authorityBefore = qgetenv("XAUTHORITY");
};

void NorvikApplicationTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    actionBefore = actionOf(SIGTERM);
    QDir::setCurrent(folder.path());
}

void NorvikApplicationTest::cleanup()
{
    ::sigaction(SIGTERM, &actionBefore, nullptr);
    if (authorityBefore.isNull())
        qunsetenv("XAUTHORITY");
    else
        qputenv("XAUTHORITY", authorityBefore);
    QDir::setCurrent(startFolder);
}

void NorvikApplicationTest::itsMetaObjectHasOneSlot()
{
    // given
    const QMetaObject& meta = NorvikApplication::staticMetaObject;

    // then
    QCOMPARE(meta.className(), "Helpers::NQt::NorvikApplication");
    QCOMPARE(meta.superClass(), &QtSingleApplication::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod slot = meta.method(meta.methodOffset());
    QCOMPARE(slot.methodSignature(), QByteArray("handleSigTerm()"));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(slot.access(), QMetaMethod::Public);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
}

void NorvikApplicationTest::theSettingsNameTheApplication()
{
    // given
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "Varnholt", "Korvel");
    CommandLine line;

    // when
    const NorvikApplication application(settings, line.count, line.arguments);

    // then
    QCOMPARE(application.id(), QString("Korvel"));
}

void NorvikApplicationTest::anIdIsKept()
{
    // given
    CommandLine line;

    // when
    const NorvikApplication application("some id", line.count, line.arguments);

    // then
    QCOMPARE(application.id(), QString("some id"));
}

void NorvikApplicationTest::withoutAnIdItIsTheProgramsPath()
{
    // given
    CommandLine line;

    // when
    const NorvikApplication application(line.count, line.arguments, false);

    // then
    QCOMPARE(application.id(), QCoreApplication::applicationFilePath());
}

void NorvikApplicationTest::itsFolderIsTheWorkingDirectory()
{
    // given
    CommandLine line;
    QCOMPARE(QDir::currentPath(), QDir(folder.path()).canonicalPath());

    // when
    const NorvikApplication application("probe", line.count, line.arguments);

    // then
    QCOMPARE(QDir::currentPath(), QCoreApplication::applicationDirPath());
}

void NorvikApplicationTest::theAuthorityFileIsFoundFromThere_data()
{
    QTest::addColumn<QByteArray>("named");
    QTest::addColumn<QByteArray>("kept");

    const QByteArray start = QFile::encodeName(QDir(folder.path()).canonicalPath());
    QTest::newRow("relative") << QByteArray("authority") << start + "/authority";
    QTest::newRow("no valid text") << QByteArray("\xff") << start + "/\xff";
    QTest::newRow("absolute") << QByteArray("/a/../authority") << QByteArray("/a/../authority");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
}

void NorvikApplicationTest::theAuthorityFileIsFoundFromThere()
{
    // given
    QFETCH(QByteArray, named);
    QFETCH(QByteArray, kept);
    qputenv("XAUTHORITY", named);
    CommandLine line;

    // when
    const NorvikApplication application("probe", line.count, line.arguments);

    // then
    QCOMPARE(qgetenv("XAUTHORITY"), kept);
}

void NorvikApplicationTest::theSettingsAreNotTouched()
{
    // given
    QSettings settings(folder.filePath("untouched.ini"), QSettings::IniFormat);
    settings.setValue("langFile", "nowhere");
    settings.setValue("other", 1);
    CommandLine line;

    // when
    {
        const NorvikApplication application(settings, line.count, line.arguments);
    }

    // then
    QCOMPARE(settings.allKeys(), QStringList({"langFile", "other"}));
    QCOMPARE(settings.value("langFile").toString(), QString("nowhere"));
}

void NorvikApplicationTest::terminationEndsTheLoopInOrder()
{
    // given
    CommandLine line;
    const NorvikApplication application("probe", line.count, line.arguments);

    // then
    QCOMPARE(resultOfTermination(), 0);
}

void NorvikApplicationTest::theActionIsGoneAfterTheFirstSignal()
{
    // given
    CommandLine line;
    const NorvikApplication application("probe", line.count, line.arguments);
    QVERIFY(!isDefault(SIGTERM));

    // when
    QCOMPARE(resultOfTermination(), 0);

    // then
    QVERIFY(isDefault(SIGTERM));
}

void NorvikApplicationTest::itEndsAgainAfterTheHandlerIsBack()
{
    // given
    CommandLine line;
    const NorvikApplication application("probe", line.count, line.arguments);
    QCOMPARE(resultOfTermination(), 0);

    // when
    QCOMPARE(NorvikApplication::setup_unix_signal_handlers(), 0);

    // then: what watches the socket is enabled, and the first byte is gone
    const auto* notifier =
        application.findChild<QSocketNotifier*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(notifier);
    QVERIFY(notifier->isEnabled());
    pollfd readable{static_cast<int>(notifier->socket()), POLLIN, 0};
    QCOMPARE(::poll(&readable, 1, 0), 0);
    QCOMPARE(resultOfTermination(), 0);
}

void NorvikApplicationTest::theActionRestartsCallsAndBlocksNothing()
{
    // given
    CommandLine line;

    // when
    const NorvikApplication application("probe", line.count, line.arguments);

    // then
    const struct sigaction action = actionOf(SIGTERM);
    for (const int flag : {SA_RESTART, static_cast<int>(SA_RESETHAND), SA_NODEFER, SA_SIGINFO})
        QVERIFY2(action.sa_flags & flag, QByteArray::number(flag).constData());
    for (const int signal : {SIGINT, SIGHUP, SIGTERM, SIGUSR1})
        QCOMPARE(sigismember(&action.sa_mask, signal), 0);
}

void NorvikApplicationTest::theActionIsInstalledAnyTime()
{
    // given
    ::signal(SIGTERM, SIG_DFL);

    // when
    const int result = NorvikApplication::setup_unix_signal_handlers();

    // then
    QCOMPARE(result, 0);
    QVERIFY(!isDefault(SIGTERM));
}

void NorvikApplicationTest::otherSignalsKeepTheirActions_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("hang-up") << SIGHUP;
    QTest::newRow("quit") << SIGQUIT;
    QTest::newRow("user") << SIGUSR1;
}

void NorvikApplicationTest::otherSignalsKeepTheirActions()
{
    // given
    QFETCH(int, signal);
    const struct sigaction before = actionOf(signal);
    CommandLine line;

    // when
    const NorvikApplication application("probe", line.count, line.arguments);

    // then
    QVERIFY(actionOf(signal).sa_handler == before.sa_handler);
    QCOMPARE(actionOf(signal).sa_flags, before.sa_flags);
}

void NorvikApplicationTest::aTerminatedProgramIsTakenDownInOrder()
{
    // given
    const Home home;
    ChildProcess program(probe(home));
    EVENTUALLY_COMPARE(program.output(), QByteArray("ready\n"));

    // when
    program.send(SIGTERM);

    // then
    EVENTUALLY_COMPARE(program.status(), 0);
    QCOMPARE(program.output(), QByteArray("ready\ndestroyed\n"));
}

void NorvikApplicationTest::aSecondSignalKillsAProgramThatHangs()
{
    // given
    const Home home;
    ChildProcess program(probe(home, "hang"));
    EVENTUALLY_COMPARE(program.output(), QByteArray("ready\n"));
    program.send(SIGTERM);
    EVENTUALLY_COMPARE(program.output(), QByteArray("ready\ninterrupted\n"));

    // when
    program.send(SIGTERM);

    // then
    EVENTUALLY_COMPARE(program.status(), killedBy(SIGTERM));
    QCOMPARE(program.output(), QByteArray("ready\ninterrupted\n"));
}

void NorvikApplicationTest::aSignalThatIsNotHandledKills_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("hang-up") << SIGHUP;
}

void NorvikApplicationTest::aSignalThatIsNotHandledKills()
{
    // given
    QFETCH(int, signal);
    const Home home;
    ChildProcess program(probe(home));
    EVENTUALLY_COMPARE(program.output(), QByteArray("ready\n"));

    // when
    program.send(signal);

    // then
    EVENTUALLY_COMPARE(program.status(), killedBy(signal));
    QCOMPARE(program.output(), QByteArray("ready\n"));
}

void NorvikApplicationTest::withoutASocketPairTheFirstSignalIsSwallowed()
{
    // given
    const Home home;
    ChildProcess program(probe(home, "no-pair"));
    EVENTUALLY_COMPARE(program.output(), QByteArray("ready\n"));
    program.send(SIGTERM);
    EVENTUALLY(isDefaultIn(program.pid(), SIGTERM));
    QVERIFY(program.isRunning());

    // when
    program.send(SIGTERM);

    // then
    EVENTUALLY_COMPARE(program.status(), killedBy(SIGTERM));
    QCOMPARE(program.output(), QByteArray("ready\n"));
}

void NorvikApplicationTest::withoutASocketPairItsSlotStillEndsTheProgram()
{
    // given
    const Home home;

    // when
    ChildProcess program(probe(home, "no-pair-slot"));

    // then
    EVENTUALLY_COMPARE(program.status(), 0);
    QCOMPARE(program.output(), QByteArray("ready\ndestroyed\n"));
}

void NorvikApplicationTest::twoProgramsRunSideBySide()
{
    // given
    const Home home;
    ChildProcess first(probe(home));
    EVENTUALLY_COMPARE(first.output(), QByteArray("ready\n"));

    // when
    ChildProcess second(probe(home));
    EVENTUALLY_COMPARE(second.output(), QByteArray("ready\n"));
    second.send(SIGTERM);
    EVENTUALLY_COMPARE(second.status(), 0);

    // then
    QVERIFY(first.isRunning());
    QCOMPARE(first.output(), QByteArray("ready\n"));
    first.send(SIGTERM);
    EVENTUALLY_COMPARE(first.status(), 0);
}

REGISTER_TEST(NorvikApplicationTest, TestSupport::NoApplication)
#include "norvikapplicationtest.moc"
