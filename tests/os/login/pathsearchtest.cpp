#include "os/login/pathsearch.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils::Login;

/// Finding a text in a path.
class PathSearchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aTextIsFoundWhateverItsCase_data();
    void aTextIsFoundWhateverItsCase();
};

void PathSearchTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

void PathSearchTest::aTextIsFoundWhateverItsCase_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<std::string>("path");
    QTest::addColumn<bool>("isFound");

    const auto row = [](const char* name, const char* text, const char* path, bool isFound) {
        QTest::newRow(name) << std::string(text) << std::string(path) << isFound;
    };
    row("the same", "/usr/bin/dex", "/usr/bin/dex", true);
    row("another case", "/applications/korvel.app", "/Applications/Korvel.app", true);
    row("the other way round", "/APPLICATIONS", "/applications/korvel", true);
    row("in the middle", "bin/de", "/usr/bin/dex", true);
    row("longer than the path", "/usr/bin/dex2", "/usr/bin/dex", false);
    row("somewhere else", "/usr/lib", "/usr/bin/dex", false);
    row("nothing", "", "/usr/bin/dex", false);
    row("nothing in nothing", "", "", false);
    row("other letters", "/\xc3\x89T\xc3\x89", "/\xc3\xa9t\xc3\xa9", true);
    row("Greek at the end of a word", "\xce\xa3", "/\xce\xb1\xcf\x82", true);
    row("one letter for two", "strasse",
        "/Stra\xc3\x9f"
        "e",
        true);
    row("a stray byte", "/a\xff", "/A\xff", true);
    row("another stray byte", "\xfe", "/A\xff", false);
    row("no half of a letter", "\xa9", "/\xc3\xa9", false);
    row("an unfinished letter", "\xc3", "/A\xc3", true);
    row("no unfinished letter in a whole one", "\xc3", "/\xc3\xa9", false);
    row("a byte that Latin-1 would fold", "\xc9", "/\xe9", false);
    QTest::newRow("a zero") << std::string("\0B", 2) << std::string("a\0b", 3) << true;
}

void PathSearchTest::aTextIsFoundWhateverItsCase()
{
    // given
    QFETCH(std::string, text);
    QFETCH(std::string, path);
    QFETCH(bool, isFound);

    // when
    const bool found = occursInPath(text, path);

    // then
    QCOMPARE(found, isFound);
}

QTEST_APPLESS_MAIN(PathSearchTest)
#include "pathsearchtest.moc"
