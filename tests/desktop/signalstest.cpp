#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QFile>

#include <functional>

/// Signals from outside: one SIGTERM ends in order, whatever is going on; the others do what they
/// always do.
class SignalsTest : public DesktopTest {
    Q_OBJECT

private slots:
    void terminationWorksInEveryState_data();
    void terminationWorksInEveryState();
    void terminationWorksDuringTheStart();
    void aSecondTerminationSignalKills();
    void interruptionKeepsItsDefault_data();
    void interruptionKeepsItsDefault();

private:
    /// Brings the program into a state, and tells whether it shows.
    using State = std::function<bool(const Desktop&, const Program&)>;

    /// Freezes the program just after it took a termination signal, before it acts on it. Tells
    /// whether that worked.
    [[nodiscard]] bool freezeInTermination(Program& korvel) const;
    /// Whether the process has a handler of its own for termination signals.
    [[nodiscard]] static bool catchesTermination(pid_t process);
    /// A line of /proc/PID/status, without its name.
    [[nodiscard]] static QByteArray kernelStatus(pid_t process, const QByteArray& name);
};

Q_DECLARE_METATYPE(std::function<bool(const Desktop&, const Program&)>)

bool SignalsTest::freezeInTermination(Program& korvel) const
{
    // The kernel hands out the lower number first, so the stop arrives when the handler has just
    // been entered.
    korvel.process().send(SIGTERM);
    korvel.process().send(SIGSTOP);
    const auto isStopped = [&] { return kernelStatus(korvel.pid(), "State:").startsWith('T'); };
    if (!eventually([&] { return isStopped() || !korvel.process().isRunning(); }) || !isStopped())
        return false;
    return !catchesTermination(korvel.pid()); // the handler is gone after its first call
}

bool SignalsTest::catchesTermination(pid_t process)
{
    const qulonglong caught = kernelStatus(process, "SigCgt:").toULongLong(nullptr, 16);
    return (caught & 1ULL << (SIGTERM - 1)) != 0;
}

QByteArray SignalsTest::kernelStatus(pid_t process, const QByteArray& name)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(process));
    if (!file.open(QFile::ReadOnly))
        return {};
    for (const QByteArray& lineOfFile : file.readAll().split('\n')) {
        if (lineOfFile.startsWith(name))
            return lineOfFile.mid(name.size()).trimmed();
    }
    return {};
}

void SignalsTest::terminationWorksInEveryState_data()
{
    QTest::addColumn<State>("enterState");

    QTest::newRow("while drawing") << State([](const Desktop& user, const Program&) {
        user.pointer.moveTo({200, 200});
        user.pointer.press();
        user.pointer.moveTo({400, 400});
        return eventually([&] { return user.screen.colourAt({300, 300}) == Qt::yellow; });
    });
    QTest::newRow("while the palette is dragged") << State([](const Desktop& user, const Program&) {
        const QPoint distance(-300, -300);
        user.pointer.moveTo(user.palette.handle());
        user.pointer.press();
        user.pointer.moveTo(user.palette.handle() + distance);
        const QPoint swatch = user.palette.movedBy(distance).swatch();
        return eventually([&] { return user.screen.colourAt(swatch) == Qt::yellow; });
    });
    QTest::newRow("with a list open") << State([](const Desktop& user, const Program& korvel) {
        return user.controls.openList(user.palette.sizeBox(), korvel);
    });
    QTest::newRow("with the colour dialog open")
        << State([](const Desktop& user, const Program& korvel) {
               return user.controls.openColourDialog(korvel);
           });
}

void SignalsTest::terminationWorksInEveryState()
{
    // given
    QFETCH(State, enterState);
    const QImage before = desktop->screen.grab();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(enterState(*desktop, korvel));

    // when
    korvel.process().send(SIGTERM);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

void SignalsTest::terminationWorksDuringTheStart()
{
    // given
    const QImage before = desktop->screen.grab();
    Program korvel(*desktop);
    EVENTUALLY(catchesTermination(korvel.pid()));

    // when
    korvel.process().send(SIGTERM);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

void SignalsTest::aSecondTerminationSignalKills()
{
    const QImage before = desktop->screen.grab();
    bool isFrozen = false;
    while (!isFrozen) {
        // given
        Program korvel(*desktop);
        EVENTUALLY(korvel.isReady());
        isFrozen = freezeInTermination(korvel);
        if (!isFrozen) { // it was too quick for us
            EVENTUALLY_COMPARE(korvel.status(), 0);
            continue;
        }

        // when
        korvel.process().send(SIGTERM);
        korvel.process().send(SIGCONT);

        // then
        EVENTUALLY_COMPARE(korvel.status(), 128 + SIGTERM);
        EVENTUALLY_COMPARE(desktop->screen.grab(), before);
    }
}

void SignalsTest::interruptionKeepsItsDefault_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void SignalsTest::interruptionKeepsItsDefault()
{
    // given
    QFETCH(int, signal);
    const QImage before = desktop->screen.grab();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    korvel.process().send(signal);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 128 + signal);
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

REGISTER_TEST(SignalsTest, QCoreApplication)
#include "signalstest.moc"
