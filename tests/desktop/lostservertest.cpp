#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <X11/keysym.h>

#include <csignal>

/// The X server is killed at one moment or another: the program ends by itself, at once, and never
/// by a signal.
class LostServerTest : public DesktopTest {
    Q_OBJECT

private slots:
    void initTestCase();
    void aProgramThatStartsEndsWithIt_data();
    void aProgramThatStartsEndsWithIt();
    void aBusyProgramEndsWithIt_data();
    void aBusyProgramEndsWithIt();

private:
    /// Has the program busy with something, and returns after some milliseconds.
    using Deed = void (*)(const Desktop&, int);

    static void draw(const Desktop& user, int ms);
    static void fade(const Desktop& user, int ms);
    static void openList(const Desktop& user, int ms);
    static void openDialog(const Desktop& user, int ms);
    static QByteArrayList managersToTry();
    static void addDeed(const char* name, Deed deed, int longestMs);
    void killTheServer(Program& korvel);
};

void LostServerTest::initTestCase()
{
    // The test's own connection breaks, too.
    ::signal(SIGPIPE, SIG_IGN);
}

void LostServerTest::draw(const Desktop& user, int ms)
{
    QElapsedTimer timer;
    timer.start();
    user.pointer.moveTo({200, 200});
    user.pointer.press();
    for (int step = 1; timer.elapsed() < ms; ++step)
        user.pointer.moveTo({200 + 7 * step % 800, 200 + 3 * step % 400});
}

void LostServerTest::fade(const Desktop& user, int ms)
{
    user.pointer.moveTo(user.palette.background());
    QTest::qSleep(ms);
}

void LostServerTest::openList(const Desktop& user, int ms)
{
    user.pointer.click(user.palette.sizeBox());
    QTest::qSleep(ms);
}

void LostServerTest::openDialog(const Desktop& user, int ms)
{
    user.pointer.click(user.palette.colourBox());
    user.keyboard.strike(XK_End);
    user.keyboard.strike(XK_Return);
    QTest::qSleep(ms);
}

QByteArrayList LostServerTest::managersToTry()
{
    return isEveryDesktopWanted() ? QByteArrayList{"none", "openbox"} : QByteArrayList{"none"};
}

void LostServerTest::addDeed(const char* name, Deed deed, int longestMs)
{
    const int moments = isEveryDesktopWanted() ? 50 : 4;
    for (const QByteArray& managerName : managersToTry()) {
        for (int moment = 0; moment < moments; ++moment) {
            const int ms = 1 + moment * longestMs / moments;
            QTest::addRow("%s, %d ms, %s", name, ms, managerName.constData())
                << managerName << deed << ms;
        }
    }
}

void LostServerTest::killTheServer(Program& korvel)
{
    const std::chrono::milliseconds atMost = patience() / 20;
    QElapsedTimer timer;
    timer.start();
    server->kill();

    EVENTUALLY_COMPARE(korvel.status(), EXIT_FAILURE);
    QVERIFY(timer.elapsed() < atMost.count());
}

void LostServerTest::aProgramThatStartsEndsWithIt_data()
{
    QTest::addColumn<QByteArray>("managerName");
    QTest::addColumn<int>("ms");

    const int step = isEveryDesktopWanted() ? 1 : 8;
    for (const QByteArray& managerName : managersToTry()) {
        for (int ms = 1; ms < 120; ms += step)
            QTest::addRow("%d ms, %s", ms, managerName.constData()) << managerName << ms;
    }
}

void LostServerTest::aProgramThatStartsEndsWithIt()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(int, ms);
    QVERIFY(startWindowManager(managerName));
    Program korvel(*desktop);
    QTest::qSleep(ms);

    // when, then
    killTheServer(korvel);
}

void LostServerTest::aBusyProgramEndsWithIt_data()
{
    QTest::addColumn<QByteArray>("managerName");
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<int>("ms");

    addDeed("a stroke", draw, 100);
    addDeed("a fade", fade, 350);
    addDeed("a list", openList, 100);
    addDeed("the colour dialog", openDialog, 200);
}

void LostServerTest::aBusyProgramEndsWithIt()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(Deed, deed);
    QFETCH(int, ms);
    QVERIFY(startWindowManager(managerName));
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    deed(*desktop, ms);

    // when, then
    killTheServer(korvel);
}

REGISTER_TEST(LostServerTest, QCoreApplication)
#include "lostservertest.moc"
