#include "os/login/autostartentry.h"

#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace osUtils::Login;

namespace {

std::string entry(const std::string& lines)
{
    return "[Desktop Entry]\n" + lines;
}

}

/// The text of an autostart entry, written and read.
class AutostartEntryTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void anEntryIsWrittenByTheStandard();
    void anEntryComesBackAsItWasWritten_data();
    void anEntryComesBackAsItWasWritten();
    void theNameCanBeShown_data();
    void theNameCanBeShown();
    void anotherProgramsEntryIsRead_data();
    void anotherProgramsEntryIsRead();
    void whatIsNoEntryIsNone_data();
    void whatIsNoEntryIsNone();
    void onlyAPositiveNumberIsAPosition_data();
    void onlyAPositiveNumberIsAPosition();
    void onlyTrueMarksAnEntryAsHidden_data();
    void onlyTrueMarksAnEntryAsHidden();
};

void AutostartEntryTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

void AutostartEntryTest::anEntryIsWrittenByTheStandard()
{
    // given
    const AutostartEntry korvel{"/opt/my $tools/korvel", true, 12};

    // when
    const std::string bytes = entryBytes(korvel);

    // then
    QCOMPARE(bytes,
             entry("Type=Application\nName=korvel\nExec=\"/opt/my \\\\$tools/korvel\"\n"
                   "X-Korvel-Hidden=true\nX-Korvel-Position=12\n"));
}

void AutostartEntryTest::anEntryComesBackAsItWasWritten_data()
{
    QTest::addColumn<std::string>("program");

    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/')
            QTest::addRow("byte %d", byte) << std::string("/a") + static_cast<char>(byte) + "b";
    }
    QTest::newRow("escapes spelt out") << std::string("/a\\nb\\sc\\\\\td");
    QTest::newRow("long") << "/" + std::string(4000, 'x');
    QTest::newRow("root") << std::string("/");
}

void AutostartEntryTest::anEntryComesBackAsItWasWritten()
{
    // given
    QFETCH(std::string, program);
    const std::int64_t position = std::numeric_limits<std::int64_t>::max();

    // when
    const auto read = parseEntry(entryBytes({program, true, position}));

    // then
    QVERIFY(read);
    QCOMPARE(read->program, program);
    QVERIFY(read->hidden);
    QCOMPARE(*read->position, position);
}

void AutostartEntryTest::theNameCanBeShown_data()
{
    QTest::addColumn<std::string>("program");
    QTest::addColumn<std::string>("name");

    QTest::newRow("plain") << std::string("/usr/bin/dex") << std::string("dex");
    QTest::newRow("non-ASCII") << std::string("/\xc3\xa9") << std::string("\xc3\xa9");
    QTest::newRow("invalid UTF-8") << std::string("/a\xff") << std::string("a\xef\xbf\xbd");
    QTest::newRow("line break") << std::string("/a\nb") << std::string("a b");
    QTest::newRow("root") << std::string("/") << std::string("/");
}

void AutostartEntryTest::theNameCanBeShown()
{
    // given
    QFETCH(std::string, program);
    QFETCH(std::string, name);

    // when
    const std::string bytes = entryBytes({program, false, 1});

    // then
    QVERIFY(bytes.find("\nName=" + name + '\n') != std::string::npos);
}

void AutostartEntryTest::anotherProgramsEntryIsRead_data()
{
    QTest::addColumn<std::string>("bytes");

    const std::string start = "Type=Application\nName=A\nExec=/usr/bin/a -b\n";
    QTest::newRow("a wrong escape") << entry("Type=Application\nExec=/usr/bin/a C:\\q\n");
    QTest::newRow("plain") << entry(start);
    QTest::newRow("remarks before it") << "# a\n\n" + entry(start);
    QTest::newRow("line ends of two bytes")
        << std::string("[Desktop Entry]\r\nType=Application\r\nExec=/usr/bin/a\r\n");
    QTest::newRow("no line end") << entry("Type=Application\nExec=/usr/bin/a");
    QTest::newRow("blanks around the sign") << entry("Type = Application\nExec = /usr/bin/a\n");
    QTest::newRow("other groups") << entry(start) + "[Desktop Action X]\nExec=/b\nHidden=true\n";
    QTest::newRow("not deleted") << entry(start + "Hidden=false\n");
    QTest::newRow("a key in Latin-1") << entry(start + "Comment=caf\xe9\n");
    QTest::newRow("translations") << entry(start + "Name[de]=\xc3\xa4\n");
    QTest::newRow("for one desktop only") << entry(start + "OnlyShowIn=KDE;\n");
}

void AutostartEntryTest::anotherProgramsEntryIsRead()
{
    // given
    QFETCH(std::string, bytes);

    // when
    const auto read = parseEntry(bytes);

    // then
    QVERIFY(read);
    QCOMPARE(read->program, std::string("/usr/bin/a"));
    QVERIFY(!read->hidden);
    QVERIFY(!read->position);
}

void AutostartEntryTest::whatIsNoEntryIsNone_data()
{
    QTest::addColumn<std::string>("bytes");

    QTest::newRow("nothing") << std::string();
    QTest::newRow("no group") << std::string("Type=Application\nExec=/a\n");
    QTest::newRow("another group") << std::string("[Other]\nType=Application\nExec=/a\n");
    QTest::newRow("no type") << entry("Exec=/a\n");
    QTest::newRow("a link") << entry("Type=Link\nURL=/a\nExec=/a\n");
    QTest::newRow("deleted") << entry("Type=Application\nExec=/a\nHidden=true\n");
    QTest::newRow("no program") << entry("Type=Application\n");
    QTest::newRow("an empty program") << entry("Type=Application\nExec=\n");
    QTest::newRow("no key") << entry("Type=Application\nExec=/a\nwhat\n");
    QTest::newRow("zeros") << std::string(5000, '\0');
    QTest::newRow("any bytes") << std::string("\x7f"
                                              "ELF\x02\x01\xff\xfe[\n=\n");
}

void AutostartEntryTest::whatIsNoEntryIsNone()
{
    // given
    QFETCH(std::string, bytes);

    // when
    const auto read = parseEntry(bytes);

    // then
    QVERIFY(!read);
}

void AutostartEntryTest::onlyAPositiveNumberIsAPosition_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<qint64>("position");

    QTest::newRow("one") << std::string("1") << qint64{1};
    QTest::newRow("zero") << std::string("0") << qint64{0};
    QTest::newRow("negative") << std::string("-3") << qint64{0};
    QTest::newRow("no number") << std::string("last") << qint64{0};
    QTest::newRow("more than a number") << std::string("3 or 4") << qint64{0};
    QTest::newRow("too large") << std::string("9223372036854775808") << qint64{0};
    QTest::newRow("empty") << std::string() << qint64{0};
}

void AutostartEntryTest::onlyAPositiveNumberIsAPosition()
{
    // given
    QFETCH(std::string, text);
    QFETCH(qint64, position);

    // when
    const auto read =
        parseEntry(entry("Type=Application\nExec=/a\nX-Korvel-Position=" + text + '\n'));

    // then
    QVERIFY(read);
    QCOMPARE(qint64{read->position.value_or(0)}, position);
}

void AutostartEntryTest::onlyTrueMarksAnEntryAsHidden_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<bool>("isHidden");

    QTest::newRow("true") << std::string("true") << true;
    QTest::newRow("false") << std::string("false") << false;
    QTest::newRow("another word") << std::string("yes") << false;
    QTest::newRow("nothing") << std::string() << false;
}

void AutostartEntryTest::onlyTrueMarksAnEntryAsHidden()
{
    // given
    QFETCH(std::string, text);
    QFETCH(bool, isHidden);

    // when
    const auto read =
        parseEntry(entry("Type=Application\nExec=/a\nX-Korvel-Hidden=" + text + '\n'));

    // then
    QVERIFY(read);
    QCOMPARE(read->hidden, isHidden);
}

QTEST_APPLESS_MAIN(AutostartEntryTest)
#include "autostartentrytest.moc"
