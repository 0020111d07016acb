#include "os/login/commandline.h"

#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils;
using namespace osUtils::Login;
using namespace TestSupport;

namespace {

DesktopEntry entryWith(const std::string& exec)
{
    DesktopEntry entry;
    entry.setValue("Name", "A painter");
    entry.setValue("Exec", exec);
    return entry;
}

/// With a bar behind each.
std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += word + '|';
    return text;
}

}

/// The command line of a desktop entry, written and read.
class CommandLineTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aLineIsMadeOfWords_data();
    void aLineIsMadeOfWords();
    void theIconIsHandedOver();
    void aNameInARelativeFolderOfThePathBecomesAbsolute();
    void onlyWhatAllStartersReadAlikeIsWritten_data();
    void onlyWhatAllStartersReadAlikeIsWritten();
};

void CommandLineTest::aLineIsMadeOfWords_data()
{
    addTextRows({"line", "words"},
                {{"arguments", "/a --b  c", "/a|--b|c|"},
                 {"quotes", "\"/a b\" 'c d' \"\"", "/a b|c d||"},
                 {"escapes", "a\\ b \"\\$c\\\\\"", "a b|$c\\|"},
                 {"files to open", "a %f %F %u %U %d b", "a|b|"},
                 {"files to open within words", "a --b=%f%u", "a|--b=|"},
                 {"a name", "a -t %c --t=%c", "a|-t|A painter|--t=A painter|"},
                 {"no icon", "a %i b", "a|b|"},
                 {"percent signs", "a %% 50%%u 3%", "a|%|50%u|3%|"},
                 {"an open quote", "\"/a b", ""},
                 {"a backslash at the end", "C:\\Tools\\", ""},
                 {"nothing", "", ""}});
}

void CommandLineTest::aLineIsMadeOfWords()
{
    // given
    QFETCH(std::string, line);

    // when
    const std::vector<std::string> words = commandWords(entryWith(line));

    // then
    QTEST(joined(words), "words");
}

void CommandLineTest::theIconIsHandedOver()
{
    // given
    DesktopEntry entry = entryWith("a %i %k");
    entry.setValue("Icon", "b");

    // then
    QCOMPARE(joined(commandWords(entry)), std::string("a|--icon|b||"));
}

void CommandLineTest::aNameInARelativeFolderOfThePathBecomesAbsolute()
{
    // given
    Session session;
    const std::string program = session.addProgram("painter");
    session.set("PATH", "programs");
    const Path before = std::filesystem::current_path();
    std::filesystem::current_path(session.root());

    // when
    const std::string found = startedProgram(entryWith("painter"));

    // then
    std::filesystem::current_path(before);
    QCOMPARE(found, program);
}

void CommandLineTest::onlyWhatAllStartersReadAlikeIsWritten_data()
{
    QTest::addColumn<std::vector<std::string>>("words");
    QTest::addColumn<std::string>("line");

    using Words = std::vector<std::string>;
    QTest::newRow("plain") << Words{"/a", "-b", "c=d"} << std::string("/a -b c=d");
    QTest::newRow("in quotes") << Words{"/a b", "it's;*?~[]", "", "\xc3\xa9"}
                               << std::string("\"/a b\" \"it's;*?~[]\" \"\" \"\xc3\xa9\"");
    const std::string shell = "/bin/sh -c \"echo ";
    QTest::newRow("a dollar sign") // exec '/$a' </dev/null
        << Words{"/$a"} << shell + "ZXhlYyAnLyRhJyA8L2Rldi9udWxs | base64 -d | /bin/sh\"";
    QTest::newRow("Latin-1") // exec 'b' '\xe9' </dev/null
        << Words{"b", "\xe9"} << shell + "ZXhlYyAnYicgJ+knIDwvZGV2L251bGw= | base64 -d | /bin/sh\"";
}

void CommandLineTest::onlyWhatAllStartersReadAlikeIsWritten()
{
    // given
    QFETCH(std::vector<std::string>, words);

    // then
    QTEST(execLine(words), "line");
}

REGISTER_TEST(CommandLineTest, TestSupport::NoApplication)
#include "commandlinetest.moc"
