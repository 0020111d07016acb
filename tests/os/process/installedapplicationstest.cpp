#include "os/process/installedapplications.h"

#include "tests/os/process/datafolders.h"

#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

using namespace osUtils::Process;
using namespace TestSupport;

using Entries = std::vector<ApplicationEntry>;

/// The desktop entries in data directories of the test's own.
class InstalledApplicationsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void withoutFoldersNothingIsInstalled();
    void anEntryTellsNameAndWindowClass();
    void whatAnEntryDoesNotTellIsEmpty();
    void theNameIsInTheUsersLanguage_data();
    void theNameIsInTheUsersLanguage();
    void aNameIsReadByTheStandardsRules_data();
    void aNameIsReadByTheStandardsRules();
    void whatIsNoApplicationIsLeftOut_data();
    void whatIsNoApplicationIsLeftOut();
    void anApplicationThatMenusDoNotShowIsInstalled();
    void entriesBelowSubfoldersHaveTheFoldersInTheirIds();
    void theUsersEntryHidesTheSystems();
    void anEntryThatTheUserDeletedIsHidden();
    void entriesComeByFolderAndId();
    void whatIsNotAFileIsLeftAlone();
    void aLinkToAnEntryIsAnEntry();

private:
    const DataFolders folders;
};

void InstalledApplicationsTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    folders.clear();
    DataFolders::useLanguage("C");
}

void InstalledApplicationsTest::withoutFoldersNothingIsInstalled()
{
    QCOMPARE(installedApplications(), Entries());
}

void InstalledApplicationsTest::anEntryTellsNameAndWindowClass()
{
    // given
    folders.write("second", "org.example.Editor.desktop",
                  applicationText("Editor", "StartupWMClass=Editor-2\n"));

    // when
    const Entries entries = installedApplications();

    // then
    QCOMPARE(entries, Entries({{"org.example.Editor", "Editor", "Editor-2"}}));
}

void InstalledApplicationsTest::whatAnEntryDoesNotTellIsEmpty()
{
    // given
    folders.write("user", "silent.desktop", "[Desktop Entry]\nType=Application\n");

    // when
    const Entries entries = installedApplications();

    // then
    QCOMPARE(entries, Entries({{"silent", "", ""}}));
}

void InstalledApplicationsTest::theNameIsInTheUsersLanguage_data()
{
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<std::string>("name");

    QTest::newRow("translated") << QByteArray("de") << std::string("Zeichner");
    QTest::newRow("of a country") << QByteArray("de_AT.UTF-8") << std::string("Zeichna");
    QTest::newRow("of another country") << QByteArray("de_CH") << std::string("Zeichner");
    QTest::newRow("not translated") << QByteArray("fr") << std::string("Painter");
    QTest::newRow("second choice") << QByteArray("fr:de") << std::string("Zeichner");
    QTest::newRow("none") << QByteArray("C") << std::string("Painter");
}

void InstalledApplicationsTest::theNameIsInTheUsersLanguage()
{
    // given
    QFETCH(QByteArray, language);
    folders.write("user", "painter.desktop",
                  applicationText("Painter", "Name[de]=Zeichner\nName[de_AT]=Zeichna\n"));
    DataFolders::useLanguage(language);

    // when
    const Entries entries = installedApplications();

    // then
    QCOMPARE(entries.size(), 1U);
    QTEST(entries.front().name, "name");
}

void InstalledApplicationsTest::aNameIsReadByTheStandardsRules_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<std::string>("name");

    QTest::newRow("blanks around") << QByteArray("  A B  ") << std::string("A B  ");
    QTest::newRow("escapes") << QByteArray("\\sA\\tB\\\\") << std::string(" A\tB\\");
    QTest::newRow("no ASCII") << QByteArray("Caf\xc3\xa9") << std::string("Caf\xc3\xa9");
    QTest::newRow("no text") << QByteArray("Caf\xe9") << std::string();
    QTest::newRow("empty") << QByteArray() << std::string();
}

void InstalledApplicationsTest::aNameIsReadByTheStandardsRules()
{
    // given
    QFETCH(QByteArray, text);
    folders.write("user", "named.desktop", applicationText(text));

    // when
    const Entries entries = installedApplications();

    // then
    QCOMPARE(entries.size(), 1U);
    QTEST(entries.front().name, "name");
}

void InstalledApplicationsTest::whatIsNoApplicationIsLeftOut_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("a link") << "a.desktop" << QByteArray("[Desktop Entry]\nType=Link\nName=A\n");
    QTest::newRow("of no type") << "a.desktop" << QByteArray("[Desktop Entry]\nName=A\n");
    QTest::newRow("deleted") << "a.desktop" << applicationText("A", "Hidden=true\n");
    QTest::newRow("of another group") << "a.desktop" << QByteArray("[Other]\nType=Application\n");
    QTest::newRow("no entry at all") << "a.desktop"
                                     << QByteArray("\x7f"
                                                   "ELF\0\1\2",
                                                   7);
    QTest::newRow("empty") << "a.desktop" << QByteArray();
    QTest::newRow("another suffix") << "a.desktop.bak" << applicationText("A");
    QTest::newRow("no suffix") << "mimeinfo.cache" << applicationText("A");
    QTest::newRow("nothing but the suffix") << ".desktop" << applicationText("A");
}

void InstalledApplicationsTest::whatIsNoApplicationIsLeftOut()
{
    // given
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    folders.write("user", file, content);

    // then
    QCOMPARE(installedApplications(), Entries());
}

void InstalledApplicationsTest::anApplicationThatMenusDoNotShowIsInstalled()
{
    // given
    folders.write("user", "a.desktop", applicationText("A", "NoDisplay=true\nHidden=false\n"));

    // then
    QCOMPARE(installedApplications(), Entries({{"a", "A", ""}}));
}

void InstalledApplicationsTest::entriesBelowSubfoldersHaveTheFoldersInTheirIds()
{
    // given
    folders.write("first", "kde4/deep/viewer.desktop", applicationText("Viewer"));

    // then
    QCOMPARE(installedApplications(), Entries({{"kde4-deep-viewer", "Viewer", ""}}));
}

void InstalledApplicationsTest::theUsersEntryHidesTheSystems()
{
    // given
    folders.write("second", "a.desktop", applicationText("Last"));
    folders.write("first", "a.desktop", applicationText("System's"));
    folders.write("user", "a.desktop", applicationText("User's"));

    // then
    QCOMPARE(installedApplications(), Entries({{"a", "User's", ""}}));
}

void InstalledApplicationsTest::anEntryThatTheUserDeletedIsHidden()
{
    // given
    folders.write("first", "a.desktop", applicationText("System's"));
    folders.write("user", "a.desktop", "[Desktop Entry]\nType=Application\nHidden=true\n");

    // then
    QCOMPARE(installedApplications(), Entries());
}

void InstalledApplicationsTest::entriesComeByFolderAndId()
{
    // given
    folders.write("second", "a.desktop", applicationText("4"));
    folders.write("first", "b.desktop", applicationText("3"));
    folders.write("user", "d.desktop", applicationText("2"));
    folders.write("user", "c.desktop", applicationText("1"));

    // when
    std::string order;
    for (const ApplicationEntry& entry : installedApplications())
        order += entry.name;

    // then
    QCOMPARE(order, "1234");
}

void InstalledApplicationsTest::whatIsNotAFileIsLeftAlone()
{
    // given: reading from a pipe that nobody writes to would never end
    folders.write("user", "folder.desktop/inner.txt", "");
    const QString pipe = folders.path("user") + "/applications/pipe.desktop";
    QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
    QFile::link("/nowhere", folders.path("user") + "/applications/broken.desktop");

    // then
    QCOMPARE(installedApplications(), Entries());
}

void InstalledApplicationsTest::aLinkToAnEntryIsAnEntry()
{
    // given
    folders.write("user", "../elsewhere.txt", applicationText("Linked"));
    QVERIFY(QDir().mkpath(folders.path("user") + "/applications"));
    QVERIFY(QFile::link(folders.path("user") + "/elsewhere.txt",
                        folders.path("user") + "/applications/a.desktop"));

    // then
    QCOMPARE(installedApplications(), Entries({{"a", "Linked", ""}}));
}

QTEST_APPLESS_MAIN(InstalledApplicationsTest)
#include "installedapplicationstest.moc"
