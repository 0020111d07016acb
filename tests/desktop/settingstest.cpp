#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

/// What a run leaves behind: two values in the settings file and nothing else.
class SettingsTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aRunWritesTwoValuesAndNothingElse();
    void whatTheUserEditedIsOverwritten();
    void valuesOfOthersAreKept();
    void aRunThatIsKilledHasStoredThem_data();
    void aRunThatIsKilledHasStoredThem();
    void theyAreStoredOnce();

private:
    /// Starts the program, draws, ends it. Tells whether all went well.
    [[nodiscard]] bool runToItsEnd(const QByteArray& workingDirectory = "/") const;
    [[nodiscard]] bool writeSettings(const QByteArray& text) const;
    [[nodiscard]] QString setting(const QString& key) const;
};

bool SettingsTest::runToItsEnd(const QByteArray& workingDirectory) const
{
    Program korvel(*desktop, {.workingDirectory = workingDirectory});
    if (!eventually([&] { return korvel.isReady(); }))
        return false;
    desktop->pointer.drag(line({200, 200}, {400, 300}));
    korvel.process().send(SIGTERM);
    return eventually([&] { return korvel.status() == 0; });
}

bool SettingsTest::writeSettings(const QByteArray& text) const
{
    QFile file(desktop->home.settingsFile());
    return QDir().mkpath(QFileInfo(file).path()) && file.open(QFile::WriteOnly)
        && file.write(text) == text.size();
}

QString SettingsTest::setting(const QString& key) const
{
    return QSettings(desktop->home.settingsFile(), QSettings::IniFormat).value(key).toString();
}

void SettingsTest::aRunWritesTwoValuesAndNothingElse()
{
    // given
    const QTemporaryDir elsewhere;

    // when
    QVERIFY(runToItsEnd(QFile::encodeName(elsewhere.path())));

    // then
    const QSettings settings(desktop->home.settingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.allKeys(), QStringList({"langFile", "resourceFile"}));
    QCOMPARE(setting("langFile"), "vellumcraft");
    QCOMPARE(setting("resourceFile"), "vellumcraft.rcc");
    QCOMPARE(desktop->home.contents(),
             QStringList({".config", ".config/Varnholt", ".config/Varnholt/Korvel.conf"}));
    QVERIFY(QDir(elsewhere.path()).isEmpty());
}

void SettingsTest::whatTheUserEditedIsOverwritten()
{
    // given
    QVERIFY(writeSettings("[General]\nlangFile=klingon\nresourceFile=/nowhere/else.rcc\n"));

    // when
    QVERIFY(runToItsEnd());

    // then
    QCOMPARE(setting("langFile"), "vellumcraft");
    QCOMPARE(setting("resourceFile"), "vellumcraft.rcc");
}

void SettingsTest::valuesOfOthersAreKept()
{
    // given
    QVERIFY(writeSettings("[General]\nmine=kept\n\n[Other]\ndeep=also kept\n"));

    // when
    QVERIFY(runToItsEnd());

    // then
    QCOMPARE(setting("mine"), "kept");
    QCOMPARE(setting("Other/deep"), "also kept");
    QCOMPARE(setting("langFile"), "vellumcraft");
}

void SettingsTest::aRunThatIsKilledHasStoredThem_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("at once") << SIGKILL;
    QTest::newRow("from the keyboard") << SIGINT;
    QTest::newRow("with its terminal") << SIGHUP;
}

void SettingsTest::aRunThatIsKilledHasStoredThem()
{
    // given
    QFETCH(int, signal);
    QVERIFY(writeSettings("[General]\nlangFile=klingon\n"));
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    EVENTUALLY_COMPARE(setting("langFile"), QString("vellumcraft"));

    // when
    korvel.process().send(signal);

    // then
    EVENTUALLY(!korvel.process().isRunning());
    QCOMPARE(setting("langFile"), "vellumcraft");
    QCOMPARE(setting("resourceFile"), "vellumcraft.rcc");
}

void SettingsTest::theyAreStoredOnce()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    EVENTUALLY_COMPARE(setting("langFile"), QString("vellumcraft"));
    QVERIFY(writeSettings("[General]\nlangFile=changed meanwhile\n"));

    // when
    korvel.process().send(SIGTERM);

    // then
    EVENTUALLY(korvel.status() == 0);
    QCOMPARE(setting("langFile"), "changed meanwhile");
}

REGISTER_TEST(SettingsTest, QCoreApplication)
#include "settingstest.moc"
