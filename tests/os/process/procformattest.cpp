#include "os/process/procformat.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils::Process;

namespace {

std::string_view view(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}

/// What the texts of the process table say.
class ProcFormatTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void anEntryIsAProcessIfItIsANumber_data();
    void anEntryIsAProcessIfItIsANumber();
    void aNameIsAllButTheLastLineEnd_data();
    void aNameIsAllButTheLastLineEnd();
    void anEmptyFileHoldsNoName();
    void aRemovedExecutableLosesTheKernelsMark_data();
    void aRemovedExecutableLosesTheKernelsMark();
};

void ProcFormatTest::anEntryIsAProcessIfItIsANumber_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<int>("id"); // 0 for none

    QTest::newRow("the first process") << QByteArray("1") << 1;
    QTest::newRow("a large number") << QByteArray("4194304") << 4194304;
    QTest::newRow("the largest number") << QByteArray("2147483647") << 2147483647;
    QTest::newRow("too large a number") << QByteArray("2147483648") << 0;
    QTest::newRow("this process's own link") << QByteArray("self") << 0;
    QTest::newRow("a number and more") << QByteArray("12ab") << 0;
    QTest::newRow("more and a number") << QByteArray("ab12") << 0;
    QTest::newRow("the folder itself") << QByteArray(".") << 0;
    QTest::newRow("nothing") << QByteArray("") << 0;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("negative") << QByteArray("-1") << 0;
    QTest::newRow("with a sign") << QByteArray("+1") << 0;
    QTest::newRow("after a blank") << QByteArray(" 1") << 0;
}

void ProcFormatTest::anEntryIsAProcessIfItIsANumber()
{
    // given
    QFETCH(QByteArray, entry);

    // when
    const std::optional<int> found = processIdFrom(view(entry));

    // then
    QTEST(found.value_or(0), "id");
}

void ProcFormatTest::aNameIsAllButTheLastLineEnd_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("a word") << QByteArray("sleep\n") << QByteArray("sleep");
    QTest::newRow("blanks") << QByteArray(" a b \n") << QByteArray(" a b ");
    QTest::newRow("brackets") << QByteArray("a) S (b\n") << QByteArray("a) S (b");
    QTest::newRow("a line end within") << QByteArray("a\nb\n") << QByteArray("a\nb");
    QTest::newRow("a line end last") << QByteArray("a\n\n") << QByteArray("a\n");
    QTest::newRow("only a line end") << QByteArray("\n\n") << QByteArray("\n");
    QTest::newRow("no name") << QByteArray("\n") << QByteArray("");
    QTest::newRow("no text") << QByteArray("\xff\xfe\n") << QByteArray("\xff\xfe");
    QTest::newRow("cut off") << QByteArray("sleep") << QByteArray("sleep");
}

void ProcFormatTest::aNameIsAllButTheLastLineEnd()
{
    // given
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, name);

    // when
    const std::optional<std::string_view> found = shortNameFrom(view(file));

    // then
    QCOMPARE(found, view(name));
}

void ProcFormatTest::anEmptyFileHoldsNoName()
{
    QCOMPARE(shortNameFrom({}), std::nullopt);
}

void ProcFormatTest::aRemovedExecutableLosesTheKernelsMark_data()
{
    QTest::addColumn<std::string>("target");
    QTest::addColumn<bool>("fileExists");
    QTest::addColumn<std::string>("path");

    QTest::newRow("there") << std::string("/bin/a") << true << std::string("/bin/a");
    QTest::newRow("removed") << std::string("/bin/a (deleted)") << false << std::string("/bin/a");
    QTest::newRow("really named so")
        << std::string("/bin/a (deleted)") << true << std::string("/bin/a (deleted)");
    QTest::newRow("named so and removed")
        << std::string("/bin/a (deleted) (deleted)") << false << std::string("/bin/a (deleted)");
    QTest::newRow("out of sight") << std::string("/bin/a") << false << std::string("/bin/a");
    QTest::newRow("nothing") << std::string() << false << std::string();
}

void ProcFormatTest::aRemovedExecutableLosesTheKernelsMark()
{
    // given
    QFETCH(std::string, target);
    QFETCH(bool, fileExists);

    // when
    const std::string path = executablePathFrom(target, fileExists);

    // then
    QTEST(path, "path");
}

QTEST_APPLESS_MAIN(ProcFormatTest)
#include "procformattest.moc"
