#include "overlay/keynames.h"

#include "tests/support/testprogram.h"

#include <QMap>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QTest>

using Helpers::NQt::Utils::convertKeyCode;

namespace {

/// Every named key, by its number.
QMap<int, QString> allNames()
{
    QMap<int, QString> names{
        {0x20, "[SPACEBAR]"},        {0x01000000, "[ESC]"},         {0x01000001, "[TAB]"},
        {0x01000003, "[BACK]"},      {0x01000005, "[ENTER]"},       {0x01000006, "[INS]"},
        {0x01000007, "[CLEAR]"},     {0x01000008, "[PAUSE]"},       {0x01000009, "[PRINT]"},
        {0x01000010, "[HOME]"},      {0x01000011, "[END]"},         {0x01000012, "[LEFT_ARROW]"},
        {0x01000013, "[UP_ARROW]"},  {0x01000014, "[RIGHT_ARROW]"}, {0x01000015, "[DOWN_ARROW]"},
        {0x01000016, "[PAGE_UP]"},   {0x01000017, "[PAGE_DOWN]"},   {0x01000020, "[SHIFT]"},
        {0x01000021, "[COMMAND]"},   {0x01000022, "[CTRL]"},        {0x01000023, "[ALT]"},
        {0x01000024, "[CAPS_LOCK]"}, {0x01000025, "[NUM_LOCK]"},    {0x01010000, "[SELECT]"},
        {0x01020003, "[EXECUTE]"},
    };
    for (int digit = 0; digit <= 9; ++digit)
        names.insert(0x30 + digit, QString::number(digit));
    const QString letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (int index = 0; index < letters.size(); ++index)
        names.insert(0x41 + index, letters.at(index));
    const QStringList functionKeys = {"[F1]", "[F2]", "[F3]", "[F4]",  "[F5]",  "[F6]",
                                      "[F7]", "[F8]", "[F9]", "[F10]", "[F11]", "[F12]"};
    for (int index = 0; index < functionKeys.size(); ++index)
        names.insert(0x01000030 + index, functionKeys.at(index));
    return names;
}

}

/// The names of keys, key by key.
class KeyNamesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void everyKeyOfQtHasItsNameOrNone_data();
    void everyKeyOfQtHasItsNameOrNone();
    void everyNamedKeyIsOneOfQts();
    void numbersWithoutAKeyHaveNoName_data();
    void numbersWithoutAKeyHaveNoName();
    void aKeyThatIsEasilyMistakenHasItsName_data();
    void aKeyThatIsEasilyMistakenHasItsName();
};

void KeyNamesTest::everyKeyOfQtHasItsNameOrNone_data()
{
    QTest::addColumn<int>("key");

    const QMetaEnum keys = QMetaEnum::fromType<Qt::Key>();
    QVERIFY(keys.keyCount() > 400);
    for (int index = 0; index < keys.keyCount(); ++index)
        QTest::newRow(keys.key(index)) << keys.value(index);
}

void KeyNamesTest::everyKeyOfQtHasItsNameOrNone()
{
    // given
    QFETCH(int, key);

    // when
    const QString name = convertKeyCode(static_cast<Qt::Key>(key));

    // then
    QCOMPARE(name, allNames().value(key));
}

void KeyNamesTest::everyNamedKeyIsOneOfQts()
{
    // given
    const QList<int> named = allNames().keys();

    // then
    QCOMPARE(named.size(), 73);
    const QMetaEnum keys = QMetaEnum::fromType<Qt::Key>();
    for (const int key : named)
        QVERIFY2(keys.valueToKey(key), qPrintable(allNames().value(key)));
}

void KeyNamesTest::numbersWithoutAKeyHaveNoName_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");

    QTest::newRow("characters") << 0 << 0x3000;
    QTest::newRow("around the special keys") << 0x00fffe00 << 0x01001000;
    QTest::newRow("around Select") << 0x0100ff00 << 0x01010100;
    QTest::newRow("around Execute") << 0x0101ff00 << 0x01020100;
    QTest::newRow("the largest") << 0x01ffff00 << 0x01ffffff;
}

void KeyNamesTest::numbersWithoutAKeyHaveNoName()
{
    // given
    QFETCH(int, first);
    QFETCH(int, last);
    const QMap<int, QString> names = allNames();

    for (int key = first; key <= last; ++key) {
        // when
        const QString name = convertKeyCode(static_cast<Qt::Key>(key));

        // then
        QVERIFY2(name == names.value(key), qPrintable(QString::number(key, 16) + ": " + name));
    }
}

void KeyNamesTest::aKeyThatIsEasilyMistakenHasItsName_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("name");

    QTest::newRow("eight") << Qt::Key_8 << "8";
    QTest::newRow("Return") << Qt::Key_Return << "";
    QTest::newRow("Enter") << Qt::Key_Enter << "[ENTER]";
    QTest::newRow("a lower-case letter") << static_cast<Qt::Key>(0x61) << "";
    QTest::newRow("F12") << Qt::Key_F12 << "[F12]";
    QTest::newRow("F13") << Qt::Key_F13 << "";
    QTest::newRow("Control") << Qt::Key_Control << "[COMMAND]";
    QTest::newRow("Meta") << Qt::Key_Meta << "[CTRL]";
    QTest::newRow("Delete") << Qt::Key_Delete << "[CLEAR]";
    QTest::newRow("Clear") << Qt::Key_Clear << "";
    QTest::newRow("Backtab") << Qt::Key_Backtab << "";
    QTest::newRow("SysReq") << Qt::Key_SysReq << "";
    QTest::newRow("ScrollLock") << Qt::Key_ScrollLock << "";
    QTest::newRow("punctuation") << Qt::Key_Slash << "";
}

void KeyNamesTest::aKeyThatIsEasilyMistakenHasItsName()
{
    // given
    QFETCH(Qt::Key, key);

    // when
    const QString name = convertKeyCode(key);

    // then
    QTEST(name, "name");
}

REGISTER_TEST(KeyNamesTest, TestSupport::NoApplication)
#include "keynamestest.moc"
