#include "os/desktopentry/desktopentry.h"

#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

using osUtils::DesktopEntry;
using namespace TestSupport;

Q_DECLARE_METATYPE(std::string)

namespace {

std::string entryOf(const std::string& lines)
{
    return "[Desktop Entry]\n" + lines;
}

}

/// Desktop entries as files hold them.
class DesktopEntryTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aValueIsReadByTheStandardsRules_data();
    void aValueIsReadByTheStandardsRules();
    void anEntryIsFoundAmongOtherThings_data();
    void anEntryIsFoundAmongOtherThings();
    void whatIsNoApplicationIsNone_data();
    void whatIsNoApplicationIsNone();
    void onlyTrueIsTrue_data();
    void onlyTrueIsTrue();
    void theNameIsInTheUsersLanguage_data();
    void theNameIsInTheUsersLanguage();
    void whatIsNoEntryIsNotRead_data();
    void whatIsNoEntryIsNotRead();
    void everyByteComesBackAsItWasWritten();

private:
    [[nodiscard]] std::optional<DesktopEntry> read(const std::string& bytes) const
    {
        writeFile(file, bytes);
        return DesktopEntry::read(file);
    }

    Session session;
    const std::string file = session.root() / "a.desktop";
};

void DesktopEntryTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    g_log_set_always_fatal(G_LOG_LEVEL_WARNING);
    std::filesystem::remove_all(file);
}

void DesktopEntryTest::aValueIsReadByTheStandardsRules_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<std::string>("value");

    const auto row = [](const char* name, const char* text, const char* value) {
        QTest::newRow(name) << std::string(text) << std::string(value);
    };
    row("plain", "/usr/bin/a -b", "/usr/bin/a -b");
    row("blanks around", "  A B  ", "A B  ");
    row("escapes", "\\sA\\tB\\nC\\rD\\\\", " A\tB\nC\rD\\");
    row("an escaped backslash before a letter", "\\\\n", "\\n");
    row("wrong escapes", "C:\\Tools\\q", "C:\\Tools\\q");
    row("a backslash at the end", "C:\\Tools\\", "C:\\Tools\\");
    row("Latin-1", "caf\xe9", "caf\xe9");
    row("nothing", "", "");
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
    QCOMPARE(entry->path(), file);
    QCOMPARE(entry->value("Missing"), std::string());
}

void DesktopEntryTest::anEntryIsFoundAmongOtherThings_data()
{
    QTest::addColumn<std::string>("bytes");

    const std::string start = "Type=Application\nName=A\nExec=/a -b\n";
    QTest::newRow("plain") << entryOf(start);
    QTest::newRow("remarks before it") << "# a\n\n" + entryOf(start);
    QTest::newRow("line ends of two bytes")
        << std::string("[Desktop Entry]\r\nType=Application\r\nExec=/a -b\r\n");
    QTest::newRow("no line end") << entryOf("Type=Application\nExec=/a -b");
    QTest::newRow("blanks around the sign") << entryOf("Type = Application\nExec = /a -b\n");
    QTest::newRow("other groups") << entryOf(start) + "[Desktop Action X]\nExec=/b\nHidden=true\n";
    QTest::newRow("not deleted") << entryOf(start + "Hidden=false\n");
    QTest::newRow("not in menus") << entryOf(start + "NoDisplay=true\n");
    QTest::newRow("a key in Latin-1") << entryOf(start + "Comment=caf\xe9\n");
    QTest::newRow("translations") << entryOf(start + "Name[de]=\xc3\xa4\n");
    QTest::newRow("for one desktop only") << entryOf(start + "OnlyShowIn=KDE;\n");
}

void DesktopEntryTest::anEntryIsFoundAmongOtherThings()
{
    // given
    QFETCH(std::string, bytes);

    // when
    const auto entry = read(bytes);

    // then
    QVERIFY(entry && entry->isApplication());
    QCOMPARE(entry->value("Exec"), std::string("/a -b"));
}

void DesktopEntryTest::whatIsNoApplicationIsNone_data()
{
    QTest::addColumn<std::string>("bytes");

    QTest::newRow("nothing") << std::string();
    QTest::newRow("no group") << std::string("Type=Application\nExec=/a\n");
    QTest::newRow("another group") << std::string("[Other]\nType=Application\nExec=/a\n");
    QTest::newRow("no type") << entryOf("Exec=/a\n");
    QTest::newRow("a link") << entryOf("Type=Link\nURL=/a\n");
    QTest::newRow("deleted") << entryOf("Type=Application\nExec=/a\nHidden=true\n");
    QTest::newRow("no key") << entryOf("Type=Application\nExec=/a\nwhat\n");
    QTest::newRow("zeros") << std::string(5000, '\0');
    QTest::newRow("any bytes") << std::string("\x7f"
                                              "ELF\x02\x01\xff\xfe[\n=\n");
}

void DesktopEntryTest::whatIsNoApplicationIsNone()
{
    // given
    QFETCH(std::string, bytes);

    // when
    const auto entry = read(bytes);

    // then
    QVERIFY(!entry || !entry->isApplication());
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
    QTest::addColumn<std::string>("language");
    QTest::addColumn<std::string>("name");

    QTest::newRow("translated") << std::string("de") << std::string("Zeichner");
    QTest::newRow("of a country") << std::string("de_AT.UTF-8") << std::string("Zeichna");
    QTest::newRow("of another country") << std::string("de_CH") << std::string("Zeichner");
    QTest::newRow("not translated") << std::string("fr") << std::string("Painter");
    QTest::newRow("second choice") << std::string("fr:de") << std::string("Zeichner");
    QTest::newRow("no text") << std::string("it") << std::string();
    QTest::newRow("none") << std::string("C") << std::string("Painter");
}

void DesktopEntryTest::theNameIsInTheUsersLanguage()
{
    // given
    QFETCH(std::string, language);
    session.set("LANGUAGE", language);

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
        writeFile(path, entryOf("Type=Application\n") + std::string(3 * 1024 * 1024, '\n'));
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

REGISTER_TEST(DesktopEntryTest, TestSupport::NoApplication)
#include "desktopentrytest.moc"
