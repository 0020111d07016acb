#include "os/desktopentry/desktopentry.h"

#include "os/desktopentry/applications.h"
#include "os/login/loginitems.h"
#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cerrno>
#include <optional>

using namespace osUtils;
using namespace TestSupport;

namespace {

/// Home folder in the user database; no user where there is none.
std::string databaseHome;

std::string entryOf(const std::string& lines)
{
    return "[Desktop Entry]\n" + lines;
}

}

// Takes the place of the system's, for this program.
extern "C" passwd* getpwuid(uid_t) noexcept
{
    static passwd entry{};
    entry.pw_dir = databaseHome.data();
    return databaseHome.empty() ? nullptr : &entry;
}

/// Desktop entries as files hold them, where the files are, and what they are called.
class DesktopEntryTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aValueIsReadByTheStandardsRules_data();
    void aValueIsReadByTheStandardsRules();
    void onlyAnApplicationsEntryIsOne_data();
    void onlyAnApplicationsEntryIsOne();
    void onlyTrueIsTrue_data();
    void onlyTrueIsTrue();
    void theNameIsInTheUsersLanguage_data();
    void theNameIsInTheUsersLanguage();
    void whatIsNoEntryIsNotRead_data();
    void whatIsNoEntryIsNotRead();
    void everyByteComesBackAsItWasWritten();
    void theEnvironmentNamesTheAutostartFolders_data();
    void theEnvironmentNamesTheAutostartFolders();
    void withoutAHomeThereAreNoItemsAndNoneIsAdded();
    void filesComeByFolderAndIdentifier();
    void foldersThatHoldThemselvesEnd();

private:
    [[nodiscard]] std::optional<DesktopEntry> read(const std::string& bytes) const
    {
        writeFile(file, bytes);
        return DesktopEntry::read(file);
    }

    std::optional<Session> session;
    Path file;
};

void DesktopEntryTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    g_log_set_always_fatal(G_LOG_LEVEL_WARNING);
    session.emplace();
    file = session->root() / "a.desktop";
}

void DesktopEntryTest::cleanup()
{
    session.reset();
    databaseHome.clear();
}

void DesktopEntryTest::aValueIsReadByTheStandardsRules_data()
{
    addTextRows({"text", "value"},
                {{"plain", "/usr/bin/a -b", "/usr/bin/a -b"},
                 {"blanks around", "  A B  ", "A B  "},
                 {"escapes", "\\sA\\tB\\nC\\rD\\\\", " A\tB\nC\rD\\"},
                 {"an escaped backslash before a letter", "\\\\n", "\\n"},
                 {"wrong escapes", "C:\\Tools\\q", "C:\\Tools\\q"},
                 {"a backslash at the end", "C:\\Tools\\", "C:\\Tools\\"},
                 {"Latin-1", "caf\xe9", "caf\xe9"},
                 {"nothing", "", ""}});
}

void DesktopEntryTest::aValueIsReadByTheStandardsRules()
{
    // given
    QFETCH(std::string, text);

    // when
    const auto entry = read(entryOf("Exec=" + text + '\n'));

    // then
    QVERIFY(entry);
    QTEST(entry->value("Exec"), "value");
    QCOMPARE(entry->path(), file.native());
    QCOMPARE(entry->value("Missing"), std::string());
}

void DesktopEntryTest::onlyAnApplicationsEntryIsOne_data()
{
    const std::string start = "Type=Application\nName=A\nExec=/a -b\n";
    addTextRows(
        {"bytes", "exec"},
        {{"plain", entryOf(start), "/a -b"},
         {"remarks before it", "# a\n\n" + entryOf(start), "/a -b"},
         {"line ends of two bytes", "[Desktop Entry]\r\nType=Application\r\nExec=/a -b\r\n",
          "/a -b"},
         {"no line end", entryOf("Type=Application\nExec=/a -b"), "/a -b"},
         {"blanks around the sign", entryOf("Type = Application\nExec = /a -b\n"), "/a -b"},
         {"other groups", entryOf(start) + "[Desktop Action X]\nExec=/b\nHidden=true\n", "/a -b"},
         {"not deleted", entryOf(start + "Hidden=false\n"), "/a -b"},
         {"not in menus", entryOf(start + "NoDisplay=true\n"), "/a -b"},
         {"a key in Latin-1", entryOf(start + "Comment=caf\xe9\n"), "/a -b"},
         {"translations", entryOf(start + "Name[de]=\xc3\xa4\n"), "/a -b"},
         {"for one desktop only", entryOf(start + "OnlyShowIn=KDE;\n"), "/a -b"},
         {"nothing", "", "none"},
         {"no group", "Type=Application\nExec=/a\n", "none"},
         {"another group", "[Other]\nType=Application\nExec=/a\n", "none"},
         {"no type", entryOf("Exec=/a\n"), "none"},
         {"a link", entryOf("Type=Link\nURL=/a\n"), "none"},
         {"deleted", entryOf("Type=Application\nExec=/a\nHidden=true\n"), "none"},
         {"no key", entryOf("Type=Application\nExec=/a\nwhat\n"), "none"},
         {"zeros", std::string(5000, '\0'), "none"},
         {"any bytes", "\x7f\x45LF\x02\x01\xff\xfe[\n=\n", "none"}});
}

void DesktopEntryTest::onlyAnApplicationsEntryIsOne()
{
    // given
    QFETCH(std::string, bytes);

    // when
    const auto entry = read(bytes);

    // then
    QTEST(entry && entry->isApplication() ? entry->value("Exec") : "none", "exec");
}

void DesktopEntryTest::onlyTrueIsTrue_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<bool>("isTrue");

    QTest::newRow("true") << std::string("true") << true;
    QTest::newRow("as old entries have it") << std::string("1") << true;
    QTest::newRow("false") << std::string("false") << false;
    QTest::newRow("another word") << std::string("yes") << false;
    QTest::newRow("a backslash at the end") << std::string("true\\") << false;
    QTest::newRow("nothing") << std::string() << false;
}

void DesktopEntryTest::onlyTrueIsTrue()
{
    // given
    QFETCH(std::string, text);

    // when
    const auto entry = read(entryOf("Hidden=" + text + '\n'));

    // then
    QTEST(entry->isTrue("Hidden"), "isTrue");
}

void DesktopEntryTest::theNameIsInTheUsersLanguage_data()
{
    addTextRows({"language", "name"},
                {{"translated", "de", "Zeichner"},
                 {"of a country", "de_AT.UTF-8", "Zeichna"},
                 {"of another country", "de_CH", "Zeichner"},
                 {"not translated", "fr", "Painter"},
                 {"second choice", "fr:de", "Zeichner"},
                 {"no text", "it", ""},
                 {"none", "C", "Painter"}});
}

void DesktopEntryTest::theNameIsInTheUsersLanguage()
{
    // given
    QFETCH(std::string, language);
    session->set("LANGUAGE", language);

    // when
    const auto entry =
        read(entryOf("Name=Painter\nName[de]=Zeichner\nName[de_AT]=Zeichna\nName[it]=\xe9\n"));

    // then
    QTEST(entry->name(), "name");
}

void DesktopEntryTest::whatIsNoEntryIsNotRead_data()
{
    using Make = std::function<void(const std::string&)>;
    QTest::addColumn<Make>("make");

    const auto row = [](const char* name, const Make& make) { QTest::newRow(name) << make; };
    const auto linkRow = [&row](const char* name, const char* target) {
        row(name,
            [target](const std::string& path) { std::filesystem::create_symlink(target, path); });
    };
    row("nothing", [](const std::string&) {});
    row("a huge file", [](const std::string& path) {
        writeFile(path, entryText("/a") + std::string(3 * 1024 * 1024, '\n'));
    });
    row("an endless file", [](const std::string& path) {
        writeFile(path, "");
        std::filesystem::resize_file(path, uintmax_t{1} << 40);
    });
    linkRow("a link to nothing", "/no/such/file");
    linkRow("a link to itself", "a.desktop");
    linkRow("a link below a file", "/dev/null/file");
    linkRow("a link to an endless device", "/dev/zero");
    // Nothing is mapped at address 0.
    linkRow("a file that nobody can read", "/proc/self/mem");
    row("a folder", [](const std::string& path) { std::filesystem::create_directory(path); });
    row("a pipe", [](const std::string& path) { mkfifo(path.c_str(), 0600); });
    row("a socket", [](const std::string& path) {
        sockaddr_un address{AF_UNIX, {}};
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        const int number = socket(AF_UNIX, SOCK_STREAM, 0);
        bind(number, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
        close(number);
    });
}

void DesktopEntryTest::whatIsNoEntryIsNotRead()
{
    // given
    QFETCH(std::function<void(const std::string&)>, make);
    make(file);

    // then
    QVERIFY(!DesktopEntry::read(file));
}

void DesktopEntryTest::everyByteComesBackAsItWasWritten()
{
    // given
    std::string value = " ";
    for (int byte = 1; byte < 256; ++byte)
        value += static_cast<char>(byte);
    DesktopEntry entry;

    // when
    entry.setValue("Path", value);

    // then
    const auto copy = read(entry.bytes());
    QVERIFY(copy);
    QCOMPARE(copy->value("Path"), value);
}

void DesktopEntryTest::theEnvironmentNamesTheAutostartFolders_data()
{
    addTextRows(
        {"config", "home", "database", "system", "folders"},
        {{"chosen", "/c", "/home/a", "/home/b", "/x:/y", "/c/autostart /x/autostart /y/autostart "},
         {"home", "", "/home/a", "/home/b", "/x", "/home/a/.config/autostart /x/autostart "},
         {"relative", "c", "/home/a", "", "x::/y:", "/home/a/.config/autostart /y/autostart "},
         {"user database", "", "", "/home/b", "/x", "/home/b/.config/autostart /x/autostart "},
         {"relative home", "", "a", "/home/b", "/x", "/home/b/.config/autostart /x/autostart "},
         {"colon in the user's", "/c:d", "", "", "/x", "/c:d/autostart /x/autostart "},
         {"not normal", "/c//d/../", "", "", "/x/./", "/c/autostart /x/autostart "},
         {"defaults", "", "", "", "", " /etc/xdg/autostart "}});
}

void DesktopEntryTest::theEnvironmentNamesTheAutostartFolders()
{
    // given
    QFETCH(std::string, config);
    QFETCH(std::string, home);
    QFETCH(std::string, database);
    QFETCH(std::string, system);
    session->set("XDG_CONFIG_HOME", config);
    session->set("HOME", home);
    session->set("XDG_CONFIG_DIRS", system);
    databaseHome = database;

    // when
    std::string folders;
    for (const std::filesystem::path& folder : autostartFolders())
        folders += folder.native() + ' ';

    // then
    QTEST(folders, "folders");
}

void DesktopEntryTest::withoutAHomeThereAreNoItemsAndNoneIsAdded()
{
    // given
    session->unset("XDG_CONFIG_HOME");
    session->unset("HOME");

    // when
    const OSStatus status = LIAEAddRefAtEnd("/bin/sh", false);

    // then
    LoginItemArrayRef items;
    QCOMPARE(status, OSStatus{ENOENT});
    QCOMPARE(LIAECopyLoginItems(items), LoginItemStatus::success);
    QVERIFY(items->empty());
}

void DesktopEntryTest::filesComeByFolderAndIdentifier()
{
    // given
    writeFile(session->root() / "two/applications/a.desktop", "");
    writeFile(session->root() / "two/applications/d.desktop", "");
    writeFile(session->applications() / "d.desktop", "");
    writeFile(session->applications() / "c.desktop", "");
    for (const char* other : {"a.desktop.bak", "mimeinfo.cache", ".desktop", "e.desktop/b"})
        writeFile(session->applications() / other, "");

    // when
    session->set("XDG_DATA_DIRS", "/nowhere:" + (session->root() / "two").native());
    const std::vector<ApplicationFile> files = applicationFiles();

    // then
    std::string identifiers;
    for (const ApplicationFile& application : files)
        identifiers += application.id + ' ';
    QCOMPARE(identifiers, std::string("c d a "));
    QCOMPARE(applicationPath(files, "d"), (session->applications() / "d.desktop").native());
}

void DesktopEntryTest::foldersThatHoldThemselvesEnd()
{
    // given
    writeFile(session->applications() / "a.desktop", "");
    std::filesystem::create_symlink(".", session->applications() / "x");

    // when
    const std::vector<ApplicationFile> files = applicationFiles();

    // then
    QVERIFY(files.size() < 20);
    QVERIFY(applicationPath(files, "x-a").ends_with("/x/a.desktop"));
}

REGISTER_TEST(DesktopEntryTest, TestSupport::NoApplication)
#include "desktopentrytest.moc"
