#include "os/login/execline.h"

#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils::Login;

/// The command line of a desktop entry, written and read.
class ExecLineTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aProgramIsQuotedWhereTheStandardAsksForIt_data();
    void aProgramIsQuotedWhereTheStandardAsksForIt();
    void aProgramComesBackAsItWasWritten_data();
    void aProgramComesBackAsItWasWritten();
    void theFirstWordIsTheProgram_data();
    void theFirstWordIsTheProgram();
    void aNameIsLookedUpOnThePath();
    void aNameInARelativeFolderOfThePathBecomesAbsolute();
    void aFolderOnThePathIsNoProgram();
};

void ExecLineTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

void ExecLineTest::aProgramIsQuotedWhereTheStandardAsksForIt_data()
{
    QTest::addColumn<std::string>("program");
    QTest::addColumn<std::string>("line");

    QTest::newRow("plain") << std::string("/usr/bin/dex") << std::string("/usr/bin/dex");
    QTest::newRow("space") << std::string("/a b") << std::string("\"/a b\"");
    QTest::newRow("apostrophe") << std::string("/it's") << std::string("\"/it's\"");
    QTest::newRow("quote") << std::string("/a\"b") << std::string("\"/a\\\"b\"");
    QTest::newRow("dollar") << std::string("/$HOME") << std::string("\"/\\$HOME\"");
    QTest::newRow("backtick") << std::string("/`id`") << std::string("\"/\\`id\\`\"");
    QTest::newRow("backslash") << std::string("/a\\b") << std::string("\"/a\\\\b\"");
    QTest::newRow("line break") << std::string("/a\nb") << std::string("\"/a\nb\"");
    QTest::newRow("percent") << std::string("/100%u") << std::string("/100%%u");
    QTest::newRow("semicolon") << std::string("/a;b") << std::string("\"/a;b\"");
    QTest::newRow("invalid UTF-8") << std::string("/\xff\xc3") << std::string("/\xff\xc3");
}

void ExecLineTest::aProgramIsQuotedWhereTheStandardAsksForIt()
{
    // given
    QFETCH(std::string, program);
    QFETCH(std::string, line);

    // when
    const std::string written = execLine(program);

    // then
    QCOMPARE(written, line);
}

void ExecLineTest::aProgramComesBackAsItWasWritten_data()
{
    QTest::addColumn<std::string>("program");

    // 47 is the slash, which a name cannot hold.
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/')
            QTest::addRow("byte %d", byte) << std::string("/a") + static_cast<char>(byte) + "b";
    }
    QTest::newRow("all at once") << std::string("/ \"'%$\\\n`#;\xc3\xa9\xff%%\\\\");
}

void ExecLineTest::aProgramComesBackAsItWasWritten()
{
    // given
    QFETCH(std::string, program);

    // when
    const std::string read = startedProgram(execLine(program));

    // then
    QCOMPARE(read, program);
}

void ExecLineTest::theFirstWordIsTheProgram_data()
{
    QTest::addColumn<std::string>("line");
    QTest::addColumn<std::string>("program");

    QTest::newRow("with arguments") << std::string("/a --b %U") << std::string("/a");
    QTest::newRow("quoted") << std::string("\"/a b\" \"c\"") << std::string("/a b");
    QTest::newRow("between apostrophes") << std::string("'/a b' c") << std::string("/a b");
    QTest::newRow("blanks before it") << std::string("  /a b") << std::string("/a");
    QTest::newRow("one that is not there") << std::string("gone-7c1 x") << std::string("gone-7c1");
    QTest::newRow("relative") << std::string("bin/a b") << std::string("bin/a");
    QTest::newRow("an open quote") << std::string("\"/a b") << std::string("\"/a b");
    QTest::newRow("an empty word") << std::string("\"\" b") << std::string("\"\" b");
    QTest::newRow("a remark") << std::string("#/a") << std::string("#/a");
    QTest::newRow("a field code") << std::string("/a%u") << std::string("/a%u");
    QTest::newRow("a percent sign at the end") << std::string("/a%") << std::string("/a%");
}

void ExecLineTest::theFirstWordIsTheProgram()
{
    // given
    QFETCH(std::string, line);
    QFETCH(std::string, program);

    // when
    const std::string found = startedProgram(line);

    // then
    QCOMPARE(found, program);
}

void ExecLineTest::aNameIsLookedUpOnThePath()
{
    // given
    const TestSupport::Session session;
    const std::string program = session.addProgram("painter");

    // when
    const std::string found = startedProgram("painter --now");

    // then
    QCOMPARE(found, program);
}

void ExecLineTest::aNameInARelativeFolderOfThePathBecomesAbsolute()
{
    // given
    TestSupport::Session session;
    const std::string program = session.addProgram("painter");
    session.set("PATH", "programs");
    const TestSupport::Path before = std::filesystem::current_path();
    std::filesystem::current_path(session.root());

    // when
    const std::string found = startedProgram("painter");

    // then
    std::filesystem::current_path(before);
    QCOMPARE(found, program);
}

void ExecLineTest::aFolderOnThePathIsNoProgram()
{
    // given
    const TestSupport::Session session;
    std::filesystem::create_directory(session.programs() / "painter");

    // when
    const std::string found = startedProgram("painter");

    // then
    QCOMPARE(found, std::string("painter"));
}

QTEST_APPLESS_MAIN(ExecLineTest)
#include "execlinetest.moc"
