#include "tests/desktop/harness/childprocess.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/home.h"
#include "tests/shell/translationfile.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

namespace {

const QByteArray garbage("no file of any kind\n");

QByteArray resourceFile(const QString& name)
{
    QFile file(QStringLiteral(RESOURCE_FOLDER "/") + name + ".rcc");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A font file, whichever the system has.
QByteArray fontFile()
{
    QDirIterator files("/usr/share/fonts", {"*.ttf"}, QDir::Files, QDirIterator::Subdirectories);
    QFile file(files.hasNext() ? files.next() : QString());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The program with what lies beside it, and Qt's folders, in one temporary folder.
class Installation {
public:
    Installation()
    {
        for (const char* folder : {"program", "qt/data", "qt/translations"})
            QDir(top.path()).mkpath(folder);
        QFile::copy(STARTUP_PROBE, program());
        write("program/qt.conf",
              "[Paths]\nPrefix=../qt\nData=data\nTranslations=translations\nPlugins="
                  + QLibraryInfo::path(QLibraryInfo::PluginsPath).toUtf8() + '\n');
    }

    [[nodiscard]] QString path(const QString& file = {}) const { return top.filePath(file); }
    [[nodiscard]] QString program() const { return path("program/probe"); }

    void write(const QString& name, const QByteArray& content)
    {
        QFile file(path(name));
        QVERIFY(QDir(top.path()).mkpath(QFileInfo(name).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    void writeSetting(const QByteArray& key, const QByteArray& value)
    {
        settings += key + '=' + value + '\n';
        QDir().mkpath(QFileInfo(home.settingsFile()).path());
        QFile file(home.settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\n" + settings);
    }

    [[nodiscard]] Command command(const QByteArray& constructor = {}) const
    {
        Environment environment = home.environment({});
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        return {.program = QFile::encodeName(program()),
                .arguments = {constructor},
                .environment = environment};
    }

private:
    const QTemporaryDir top;
    const Home home;
    QByteArray settings;
};

}

/// The files that a start finds, or does not find. Each start is a process of its own.
class StartupFilesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { installation.reset(); }

    void aTranslationIsLookedForInTwoFolders_data();
    void aTranslationIsLookedForInTwoFolders();
    void withoutATranslationATranslatorIsInstalledAnyway();
    void withoutALanguageFileNoTranslatorIsInstalled_data();
    void withoutALanguageFileNoTranslatorIsInstalled();
    void theNameOfATranslationMayBeShortened_data();
    void theNameOfATranslationMayBeShortened();

    void resourcesAreLookedForInTwoFolders_data();
    void resourcesAreLookedForInTwoFolders();
    void resourcesMayHaveAnAbsolutePath();
    void theDataFolderComesBeforeAnAbsolutePath();
    void withoutAResourceFileThereIsNone_data();
    void withoutAResourceFileThereIsNone();

    void fontsAreLoadedFromOneFolder_data();
    void fontsAreLoadedFromOneFolder();

    void withoutSettingsTheRestIsPrepared_data();
    void withoutSettingsTheRestIsPrepared();
    void theSettingsNameTheApplication();

private:
    [[nodiscard]] QJsonObject start(const QByteArray& constructor = {}) const;

    std::optional<Installation> installation;
};

void StartupFilesTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    installation.emplace();
    QVERIFY(!fontFile().isEmpty());
    QVERIFY(!resourceFile("first").isEmpty());
}

/// What the start has found; nothing if it failed or said anything else.
QJsonObject StartupFilesTest::start(const QByteArray& constructor) const
{
    ChildProcess program(installation->command(constructor));
    if (!eventually([&] { return !program.isRunning(); }) || program.status() != 0) {
        qWarning("%s", program.output().constData());
        return {};
    }
    QJsonParseError error;
    const QJsonObject found = QJsonDocument::fromJson(program.output(), &error).object();
    if (error.error != QJsonParseError::NoError)
        qWarning("%s", program.output().constData());
    return found;
}

void StartupFilesTest::aTranslationIsLookedForInTwoFolders_data()
{
    const QByteArray first = translationFile("Size", "of Qt");
    const QByteArray second = translationFile("Size", "of the program");
    QTest::addColumn<QByteArray>("inQt");
    QTest::addColumn<QByteArray>("besideProgram");
    QTest::addColumn<QString>("text");

    QTest::newRow("Qt's") << first << QByteArray() << "of Qt";
    QTest::newRow("beside the program") << QByteArray() << second << "of the program";
    QTest::newRow("both") << first << second << "of Qt";
    QTest::newRow("Qt's is damaged") << garbage << second << "of the program";
    QTest::newRow("both are damaged") << garbage << garbage << "Size";
}

void StartupFilesTest::aTranslationIsLookedForInTwoFolders()
{
    // given
    QFETCH(QByteArray, inQt);
    QFETCH(QByteArray, besideProgram);
    if (!inQt.isEmpty())
        installation->write("qt/translations/vellumcraft.qm", inQt);
    if (!besideProgram.isEmpty())
        installation->write("program/vellumcraft.qm", besideProgram);
    installation->writeSetting("langFile", "vellumcraft");

    // when
    const QJsonObject found = start();

    // then
    QTEST(found["text"].toString(), "text");
    QCOMPARE(found["translators"].toInt(), 1);
}

void StartupFilesTest::withoutATranslationATranslatorIsInstalledAnyway()
{
    // given
    installation->writeSetting("langFile", "vellumcraft");

    // when
    const QJsonObject found = start();

    // then
    QCOMPARE(found["text"].toString(), QString("Size"));
    QCOMPARE(found["translators"].toInt(), 1);
}

void StartupFilesTest::withoutALanguageFileNoTranslatorIsInstalled_data()
{
    QTest::addColumn<bool>("set");

    QTest::newRow("empty") << true;
    QTest::newRow("not set") << false;
}

void StartupFilesTest::withoutALanguageFileNoTranslatorIsInstalled()
{
    // given
    QFETCH(bool, set);
    if (set)
        installation->writeSetting("langFile", "");
    installation->write("program/.qm", translationFile("Size", "nameless"));

    // when
    const QJsonObject found = start();

    // then
    QCOMPARE(found["text"].toString(), QString("Size"));
    QCOMPARE(found["translators"].toInt(-1), 0);
}

void StartupFilesTest::theNameOfATranslationMayBeShortened_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("with the suffix") << QByteArray("vellumcraft.qm");
    QTest::newRow("with a language") << QByteArray("vellumcraft_de");
    QTest::newRow("with a language and a country") << QByteArray("vellumcraft_de_AT");
}

void StartupFilesTest::theNameOfATranslationMayBeShortened()
{
    // given
    QFETCH(QByteArray, name);
    installation->writeSetting("langFile", name);
    installation->write("program/vellumcraft.qm", translationFile("Size", "found"));

    // when
    const QJsonObject found = start();

    // then
    QCOMPARE(found["text"].toString(), QString("found"));
}

void StartupFilesTest::resourcesAreLookedForInTwoFolders_data()
{
    const QByteArray first = resourceFile("first");
    const QByteArray second = resourceFile("second");
    QTest::addColumn<QByteArray>("inQt");
    QTest::addColumn<QByteArray>("besideProgram");
    QTest::addColumn<QJsonArray>("resources");

    QTest::newRow("Qt's") << first << QByteArray() << QJsonArray{"first"};
    QTest::newRow("beside the program") << QByteArray() << second << QJsonArray{"second"};
    QTest::newRow("both") << first << second << QJsonArray{"first"};
    QTest::newRow("Qt's is damaged") << garbage << second << QJsonArray{"second"};
    QTest::newRow("both are damaged") << garbage << garbage << QJsonArray();
    QTest::newRow("none") << QByteArray() << QByteArray() << QJsonArray();
    QTest::newRow("cut off") << QByteArray() << second.first(second.size() / 2) << QJsonArray();
}

void StartupFilesTest::resourcesAreLookedForInTwoFolders()
{
    // given
    QFETCH(QByteArray, inQt);
    QFETCH(QByteArray, besideProgram);
    if (!inQt.isEmpty())
        installation->write("qt/data/vellumcraft.rcc", inQt);
    if (!besideProgram.isEmpty())
        installation->write("program/vellumcraft.rcc", besideProgram);
    installation->writeSetting("resourceFile", "vellumcraft.rcc");

    // when
    const QJsonObject found = start();

    // then
    QVERIFY(found.contains("resources"));
    QTEST(found["resources"].toArray(), "resources");
}

void StartupFilesTest::resourcesMayHaveAnAbsolutePath()
{
    // given
    installation->write("elsewhere/some.rcc", resourceFile("second"));
    installation->writeSetting("resourceFile", installation->path("elsewhere/some.rcc").toUtf8());

    // when
    const QJsonObject found = start();

    // then
    QCOMPARE(found["resources"].toArray(), QJsonArray{"second"});
}

void StartupFilesTest::theDataFolderComesBeforeAnAbsolutePath()
{
    // given
    const QString absolute = installation->path("elsewhere/some.rcc");
    installation->write("elsewhere/some.rcc", resourceFile("second"));
    installation->write("qt/data/" + absolute, resourceFile("first"));
    installation->writeSetting("resourceFile", absolute.toUtf8());

    // when
    const QJsonObject found = start();

    // then
    QCOMPARE(found["resources"].toArray(), QJsonArray{"first"});
}

void StartupFilesTest::withoutAResourceFileThereIsNone_data()
{
    QTest::addColumn<bool>("set");

    QTest::newRow("empty") << true;
    QTest::newRow("not set") << false;
}

void StartupFilesTest::withoutAResourceFileThereIsNone()
{
    // given
    QFETCH(bool, set);
    if (set)
        installation->writeSetting("resourceFile", "");
    installation->write("program/vellumcraft.rcc", resourceFile("second"));

    // when
    const QJsonObject found = start();

    // then
    QVERIFY(found.contains("resources"));
    QCOMPARE(found["resources"].toArray(), QJsonArray());
}

void StartupFilesTest::fontsAreLoadedFromOneFolder_data()
{
    QTest::addColumn<QStringList>("fonts");
    QTest::addColumn<QStringList>("others");
    QTest::addColumn<int>("loaded");

    QTest::newRow("beside the program")
        << QStringList{"program/a.ttf", "program/b.ttf"} << QStringList() << 2;
    QTest::newRow("in Qt's folder") << QStringList{"qt/Fonts/a.ttf"} << QStringList() << 1;
    QTest::newRow("in both") << QStringList{"program/a.ttf", "program/b.ttf", "qt/Fonts/a.ttf"}
                             << QStringList() << 1;
    QTest::newRow("Qt's folder holds none")
        << QStringList{"program/a.ttf"} << QStringList{"qt/Fonts/readme"} << 0;
    QTest::newRow("Qt's folder is a file")
        << QStringList{"program/a.ttf"} << QStringList{"qt/Fonts"} << 1;
    QTest::newRow("a folder beside the program")
        << QStringList{"program/Fonts/a.ttf"} << QStringList() << 0;
    QTest::newRow("deeper in Qt's folder")
        << QStringList{"qt/Fonts/more/a.ttf"} << QStringList() << 0;
    QTest::newRow("without a suffix") << QStringList{"program/font"} << QStringList() << 1;
    QTest::newRow("amid garbage") << QStringList{"program/m.ttf"}
                                  << QStringList{"program/a.ttf", "program/z.ttf"} << 1;
    QTest::newRow("none") << QStringList() << QStringList() << 0;
}

void StartupFilesTest::fontsAreLoadedFromOneFolder()
{
    // given
    QFETCH(QStringList, fonts);
    QFETCH(QStringList, others);
    for (const QString& name : fonts)
        installation->write(name, fontFile());
    for (const QString& name : others)
        installation->write(name, garbage);

    // when
    const QJsonObject found = start();

    // then
    QTEST(found["fonts"].toInt(-1), "loaded");
}

void StartupFilesTest::withoutSettingsTheRestIsPrepared_data()
{
    QTest::addColumn<QByteArray>("constructor");

    QTest::newRow("with an id") << QByteArray("id");
    QTest::newRow("with a flag") << QByteArray("flag");
}

void StartupFilesTest::withoutSettingsTheRestIsPrepared()
{
    // given
    QFETCH(QByteArray, constructor);
    installation->writeSetting("langFile", "vellumcraft");
    installation->writeSetting("resourceFile", "vellumcraft.rcc");
    installation->write("program/vellumcraft.qm", translationFile("Size", "found"));
    installation->write("program/vellumcraft.rcc", resourceFile("second"));
    installation->write("program/a.ttf", fontFile());

    // when
    const QJsonObject found = start(constructor);

    // then
    QCOMPARE(found["text"].toString(), QString("Size"));
    QCOMPARE(found["translators"].toInt(-1), 0);
    QCOMPARE(found["resources"].toArray(), QJsonArray());
    QCOMPARE(found["fonts"].toInt(), 1);
    QCOMPARE(found["folder"].toString(),
             QFileInfo(installation->path("program")).canonicalFilePath());
}

void StartupFilesTest::theSettingsNameTheApplication()
{
    // when
    const QJsonObject found = start();

    // then
    QCOMPARE(found["id"].toString(), QString("Korvel"));
    QCOMPARE(found["folder"].toString(),
             QFileInfo(installation->path("program")).canonicalFilePath());
}

REGISTER_TEST(StartupFilesTest, QCoreApplication)
#include "startupfilestest.moc"
