#include "shell/qtsingleapplication.h"

#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>
#include <QWidget>

namespace {

/// What main is given.
struct CommandLine {
    char name[7] = "korvel";
    char* arguments[2] = {name, nullptr};
    int count = 1;
};

}

/// The id that instances of the program carry.
class QtSingleApplicationTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void anIdIsKept_data();
    void anIdIsKept();
    void withoutAnIdItIsTheProgramsPath_data();
    void withoutAnIdItIsTheProgramsPath();
    void windowsWorkWhateverTheFlagSays();
};

void QtSingleApplicationTest::anIdIsKept_data()
{
    QTest::addColumn<QString>("id");

    QTest::newRow("a name") << "Korvel";
    QTest::newRow("empty") << "";
    QTest::newRow("with blanks") << "one two";
}

void QtSingleApplicationTest::anIdIsKept()
{
    // given
    QFETCH(QString, id);
    CommandLine line;

    // when
    const QtSingleApplication application(id, line.count, line.arguments);

    // then
    QCOMPARE(application.id(), id);
}

void QtSingleApplicationTest::withoutAnIdItIsTheProgramsPath_data()
{
    QTest::addColumn<bool>("guiEnabled");

    QTest::newRow("with windows") << true;
    QTest::newRow("without windows") << false;
}

void QtSingleApplicationTest::withoutAnIdItIsTheProgramsPath()
{
    // given
    QFETCH(bool, guiEnabled);
    CommandLine line;

    // when
    const QtSingleApplication application(line.count, line.arguments, guiEnabled);

    // then
    QCOMPARE(application.id(), QCoreApplication::applicationFilePath());
    QVERIFY(!application.id().isEmpty());
}

void QtSingleApplicationTest::windowsWorkWhateverTheFlagSays()
{
    // given
    CommandLine line;
    const QtSingleApplication application(line.count, line.arguments, false);
    QWidget window;

    // when
    window.show();

    // then
    QVERIFY(window.isVisible());
    QCOMPARE(qApp, &application);
}

REGISTER_TEST(QtSingleApplicationTest, TestSupport::NoApplication)
#include "qtsingleapplicationtest.moc"
