#include "os/process/windowidentity.h"

#include <QRegularExpression>
#include <QTest>

using namespace osUtils::Process;

using Numbers = std::vector<uint32_t>;

/// How a window's properties are read.
class WindowIdentityTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aClassIsTwoTexts_data();
    void aClassIsTwoTexts();
    void aProcessIsTrustedOnThisHost_data();
    void aProcessIsTrustedOnThisHost();
};

void WindowIdentityTest::aClassIsTwoTexts_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<std::string>("instance");
    QTest::addColumn<std::string>("name");

    const auto row = [](const char* tag, const QByteArray& property, const char* instance,
                        const char* name) {
        QTest::newRow(tag) << property << std::string(instance) << std::string(name);
    };
    row("as usual", QByteArray("xterm\0XTerm\0", 12), "xterm", "XTerm");
    row("without the last zero", QByteArray("xterm\0XTerm", 11), "xterm", "XTerm");
    row("with more after it", QByteArray("a\0b\0c\0", 6), "a", "b");
    row("one text", QByteArray("xterm\0", 6), "xterm", "");
    row("one text without zero", "xterm", "xterm", "");
    row("no instance", QByteArray("\0XTerm\0", 7), "", "XTerm");
    row("two empty texts", QByteArray("\0\0", 2), "", "");
    row("one empty text", QByteArray("\0", 1), "", "");
    row("nothing", {}, "", "");
    row("no ASCII", QByteArray("\xff\0\xe9\0", 4), "\xff", "\xe9");
}

void WindowIdentityTest::aClassIsTwoTexts()
{
    // given
    QFETCH(QByteArray, property);

    // when
    const WindowClass found = windowClassFrom(property.toStdString());

    // then
    QTEST(found.instance, "instance");
    QTEST(found.name, "name");
}

void WindowIdentityTest::aProcessIsTrustedOnThisHost_data()
{
    QTest::addColumn<Numbers>("ids");
    QTest::addColumn<QByteArray>("machine");
    QTest::addColumn<QByteArray>("host");
    QTest::addColumn<int>("process"); // 0 for none

    const QByteArray here = "desk";
    QTest::newRow("this host") << Numbers{42} << here << here << 42;
    QTest::newRow("with the zero byte") << Numbers{42} << QByteArray("desk\0", 5) << here << 42;
    QTest::newRow("the largest id") << Numbers{2147483647} << here << here << 2147483647;
    QTest::newRow("too large an id") << Numbers{2147483648} << here << here << 0;
    QTest::newRow("zero") << Numbers{0} << here << here << 0;
    QTest::newRow("no id") << Numbers{} << here << here << 0;
    QTest::newRow("two ids") << Numbers{42, 43} << here << here << 0;
    QTest::newRow("another host") << Numbers{42} << QByteArray("shelf") << here << 0;
    QTest::newRow("a longer name") << Numbers{42} << QByteArray("desktop") << here << 0;
    QTest::newRow("a shorter name") << Numbers{42} << QByteArray("des") << here << 0;
    QTest::newRow("another case") << Numbers{42} << QByteArray("Desk") << here << 0;
    QTest::newRow("no host told") << Numbers{42} << QByteArray() << here << 0;
    QTest::newRow("a host without a name") << Numbers{42} << QByteArray() << QByteArray() << 0;
}

void WindowIdentityTest::aProcessIsTrustedOnThisHost()
{
    // given
    QFETCH(Numbers, ids);
    QFETCH(QByteArray, machine);
    QFETCH(QByteArray, host);

    // when
    const std::optional<int> process = localProcess(ids, machine.toStdString(), host.toStdString());

    // then
    QTEST(process.value_or(0), "process");
}

QTEST_APPLESS_MAIN(WindowIdentityTest)
#include "windowidentitytest.moc"
