#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>

#include <X11/keysym.h>

namespace {

/// How often each thread of the process fell asleep or was interrupted so far, as the kernel's
/// text.
QStringList contextSwitches(pid_t process)
{
    QStringList counts;
    QDirIterator threads(QStringLiteral("/proc/%1/task").arg(process),
                         QDir::Dirs | QDir::NoDotAndDotDot);
    while (threads.hasNext()) {
        QFile status(threads.next() + QStringLiteral("/status"));
        if (status.open(QFile::ReadOnly))
            counts += QString::fromLatin1(status.readAll()).split('\n').filter("ctxt_switches");
    }
    return counts;
}

}

/// From the start to the first stroke: the frozen picture, the ways to call the program, several at
/// once.
class StartupTest : public DesktopTest {
    Q_OBJECT

private slots:
    void theFrameCoversTheWholeScreen();
    void theDesktopIsFrozenPixelForPixel();
    void itStartsFromAnywhere_data();
    void itStartsFromAnywhere();
    void itWorksInItsOwnFolder();
    void aSecondOneRunsBesideTheFirst();
    void withoutADisplayItSaysSoAndEnds();
    void nothingRunsWhileNothingHappens();
    void itSaysNothing();
};

void StartupTest::theFrameCoversTheWholeScreen()
{
    // when
    const Program korvel(*desktop);

    // then
    EVENTUALLY(korvel.isReady());
    QCOMPARE(desktop->windows.geometry(korvel.frame()), desktop->screen.area());
}

void StartupTest::theDesktopIsFrozenPixelForPixel()
{
    // given
    desktop->backdrop.paintPattern();
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->backdrop.fill(Qt::white);

    // then
    QVERIFY(parkPointer({100, 700}, Qt::yellow));
    const QRect dot(80, 680, 40, 40);
    const QList<QRect> notTheDesktop{desktop->palette.area(), dot};
    QCOMPARE(blanked(desktop->screen.grab(), notTheDesktop),
             blanked(Backdrop::pattern(desktop->x.size()), notTheDesktop));
}

void StartupTest::itStartsFromAnywhere_data()
{
    QTest::addColumn<QByteArray>("directory");
    QTest::addColumn<QByteArray>("executable");

    const QFileInfo link(QFile::decodeName(Program::installedExecutable()));
    const QByteArray bin = QFile::encodeName(link.path());
    const QByteArray lib = QFile::encodeName(QFileInfo(link.canonicalFilePath()).path());
    QTest::newRow("through the link") << QByteArray("/") << bin + "/korvel";
    QTest::newRow("directly") << QByteArray("/usr") << lib + "/korvel";
    QTest::newRow("by name in its own folder") << lib << QByteArray("./korvel");
    QTest::newRow("by name beside the link") << bin << QByteArray("./korvel");
    QTest::newRow("by a way back") << lib << QByteArray("../../bin/korvel");
}

void StartupTest::itStartsFromAnywhere()
{
    // given
    QFETCH(QByteArray, directory);
    QFETCH(QByteArray, executable);

    // when
    const Program korvel(*desktop, {.executable = executable, .workingDirectory = directory});
    EVENTUALLY(korvel.isReady());
    desktop->pointer.moveTo(desktop->palette.closeButton());

    // then The button is a picture of the resource file: without one, the fully opaque palette
    // would show nothing there.
    EVENTUALLY(desktop->screen.colourAt(desktop->palette.swatch()) == Qt::yellow);
    const QImage button =
        desktop->screen.grab({desktop->palette.closeButton() - QPoint(20, 12), QSize(40, 24)});
    QImage blank(button.size(), button.format());
    blank.fill(button.pixelColor(0, 0));
    QVERIFY(button != blank);
}

void StartupTest::itWorksInItsOwnFolder()
{
    // when
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // then
    const QString link = QStringLiteral("/proc/%1/cwd").arg(korvel.pid());
    const QFileInfo executable(QFile::decodeName(Program::installedExecutable()));
    QCOMPARE(QFile::symLinkTarget(link), QFileInfo(executable.canonicalFilePath()).path());
}

void StartupTest::aSecondOneRunsBesideTheFirst()
{
    // given
    QVERIFY(startWindowManager("openbox"));
    Program first(*desktop, {.arguments = {"20", "0", "0", "255"}});
    EVENTUALLY(first.isReady());
    desktop->pointer.drag(line({200, 200}, {400, 200}));
    QVERIFY(parkPointer({100, 300}, Qt::blue));

    // when
    Program second(*desktop, {.arguments = {"20", "255", "0", "0"}});

    // then
    EVENTUALLY(second.isReady());
    QCOMPARE(first.status(), ChildProcess::Running);
    desktop->pointer.drag(line({200, 300}, {400, 300}));
    QVERIFY(parkPointer({100, 400}, Qt::red));
    QCOMPARE(desktop->screen.colourAt({300, 200}), QColor(Qt::blue));
    QCOMPARE(desktop->screen.colourAt({300, 300}), QColor(Qt::red));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(second.status(), 0);
    EVENTUALLY(first.hasKeyboard());
    QVERIFY(parkPointer({100, 500}, Qt::blue));
    EVENTUALLY_COMPARE(desktop->screen.colourAt({300, 300}), QColor(Qt::white));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(first.status(), 0);
}

void StartupTest::withoutADisplayItSaysSoAndEnds()
{
    // when
    Program korvel(*desktop, {.unset = {"DISPLAY"}});

    // then
    EVENTUALLY(!korvel.process().isRunning());
    QVERIFY(korvel.status() != 0);
    QVERIFY2(korvel.process().output().contains("display"), korvel.process().output().constData());
}

void StartupTest::nothingRunsWhileNothingHappens()
{
    // given
    constexpr int observationMs = 500;
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.drag(line({200, 200}, {400, 300}));
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(desktop->screen.colourAt(desktop->palette.swatch()) == Qt::yellow);
    // when
    // Here, and only here, time that passes is the subject itself.
    const auto stayedAsleep = [&] {
        const QStringList before = contextSwitches(korvel.pid());
        QTest::qSleep(observationMs);
        return contextSwitches(korvel.pid()) == before;
    };

    // then
    EVENTUALLY(stayedAsleep());
    QVERIFY(stayedAsleep());
}

void StartupTest::itSaysNothing()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({200, 200}, {400, 300}));
    desktop->pointer.turn(Pointer::Wheel::TowardsUser);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);

    // then
    QCOMPARE(korvel.process().output(), QByteArray());
}

REGISTER_TEST(StartupTest, QCoreApplication)
#include "startuptest.moc"
