#include "shell/penarguments.h"

#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

Q_DECLARE_METATYPE(PenArguments)

/// What the command line makes of the pen.
class PenArgumentsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void argumentsAreReadByPosition_data();
    void argumentsAreReadByPosition();
    void anArgumentIsAWholeNumber_data();
    void anArgumentIsAWholeNumber();
    void anyNumberButZeroMeansTransparent_data();
    void anyNumberButZeroMeansTransparent();
    void theProgramsNameIsNoArgument();
    void thousandsOfArgumentsAreSurvived();
    void theColourIsOpaque_data();
    void theColourIsOpaque();
    void aColourOutOfRangeIsInvalid_data();
    void aColourOutOfRangeIsInvalid();
};

void PenArgumentsTest::argumentsAreReadByPosition_data()
{
    const PenArguments defaults{20, 255, 255, 0, false};
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<PenArguments>("pen");

    QTest::newRow("none") << QStringList{} << defaults;
    QTest::newRow("size") << QStringList{"5"} << PenArguments{5, 255, 255, 0, false};
    QTest::newRow("size and red") << QStringList{"5", "1"} << PenArguments{5, 1, 255, 0, false};
    QTest::newRow("up to green") << QStringList{"5", "1", "2"} << PenArguments{5, 1, 2, 0, false};
    QTest::newRow("up to blue") << QStringList{"5", "1", "2", "3"}
                                << PenArguments{5, 1, 2, 3, false};
    QTest::newRow("all five") << QStringList{"5", "0", "0", "255", "1"}
                              << PenArguments{5, 0, 0, 255, true};
    QTest::newRow("a sixth") << QStringList{"5", "0", "0", "255", "0", "1"}
                             << PenArguments{5, 0, 0, 255, false};
    QTest::newRow("empty first") << QStringList{"", "1", "2", "3", "1"}
                                 << PenArguments{20, 1, 2, 3, true};
    QTest::newRow("blank amid") << QStringList{"5", " ", "2", "\t\n ", "1"}
                                << PenArguments{5, 255, 2, 0, true};
    QTest::newRow("all empty") << QStringList{"", "", "", "", ""} << defaults;
    QTest::newRow("no number amid")
        << QStringList{"5", "abc", "2"} << PenArguments{5, 0, 2, 0, false};
    QTest::newRow("out of range") << QStringList{"-3", "300", "-1", "99999"}
                                  << PenArguments{-3, 300, -1, 99999, false};
}

void PenArgumentsTest::argumentsAreReadByPosition()
{
    // given
    QFETCH(QStringList, arguments);

    // when
    const PenArguments pen = penArguments(QStringList("korvel") + arguments);

    // then
    QTEST(pen, "pen");
}

void PenArgumentsTest::anArgumentIsAWholeNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("size");

    QTest::newRow("a number") << "12" << 12;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("negative") << "-12" << -12;
    QTest::newRow("with a plus") << "+12" << 12;
    QTest::newRow("between blanks") << "  12\t" << 12;
    QTest::newRow("with leading zeros") << "0012" << 12;
    QTest::newRow("largest") << "2147483647" << 2147483647;
    QTest::newRow("smallest") << "-2147483648" << -2147483647 - 1;
    QTest::newRow("one too large") << "2147483648" << 0;
    QTest::newRow("huge") << QString(10000, '9') << 0;
    QTest::newRow("a letter") << "x" << 0;
    QTest::newRow("a fraction") << "7.5" << 0;
    QTest::newRow("an exponent") << "1e2" << 0;
    QTest::newRow("hexadecimal") << "0x10" << 0;
    QTest::newRow("digits, then letters") << "12px" << 0;
    QTest::newRow("two numbers") << "1 2" << 0;
    QTest::newRow("with a group separator") << "1,000" << 0;
    QTest::newRow("a sign alone") << "-" << 0;
    QTest::newRow("an option") << "--size" << 0;
    QTest::newRow("bytes that are no text") << QString::fromUtf8("\xff\xfe\x80") << 0;
    QTest::newRow("a number and such bytes") << QString::fromUtf8("12\xff") << 0;
    QTest::newRow("half a character") << QString(QChar(0xd800)) << 0;
    QTest::newRow("a zero character") << QString(QChar(0)) << 0;
    QTest::newRow("a million letters") << QString(1000000, 'x') << 0;
}

void PenArgumentsTest::anArgumentIsAWholeNumber()
{
    // given
    QFETCH(QString, text);

    // when
    const PenArguments pen = penArguments({"korvel", text});

    // then
    QTEST(pen.size, "size");
}

void PenArgumentsTest::anyNumberButZeroMeansTransparent_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("transparent");

    QTest::newRow("1") << "1" << true;
    QTest::newRow("2") << "2" << true;
    QTest::newRow("-1") << "-1" << true;
    QTest::newRow("0") << "0" << false;
    QTest::newRow("-0") << "-0" << false;
    QTest::newRow("no") << "no" << false;
    QTest::newRow("true") << "true" << false;
    QTest::newRow("blank") << " " << false;
}

void PenArgumentsTest::anyNumberButZeroMeansTransparent()
{
    // given
    QFETCH(QString, text);

    // when
    const PenArguments pen = penArguments({"korvel", "20", "255", "255", "0", text});

    // then
    QTEST(pen.transparent, "transparent");
}

void PenArgumentsTest::theProgramsNameIsNoArgument()
{
    QCOMPARE(penArguments({"5", "7"}).size, 7);
    QCOMPARE(penArguments({"5"}), PenArguments());
    QCOMPARE(penArguments({}), PenArguments());
}

void PenArgumentsTest::thousandsOfArgumentsAreSurvived()
{
    // given
    QStringList arguments{"korvel", "5"};
    arguments += QStringList(100000, "9");

    // when
    const PenArguments pen = penArguments(arguments);

    // then
    QCOMPARE(pen, PenArguments({5, 9, 9, 9, true}));
}

void PenArgumentsTest::theColourIsOpaque_data()
{
    QTest::addColumn<bool>("transparent");

    QTest::newRow("opaque pen") << false;
    QTest::newRow("transparent pen") << true;
}

void PenArgumentsTest::theColourIsOpaque()
{
    // given
    QFETCH(bool, transparent);
    const PenArguments pen{20, 10, 20, 30, transparent};

    // then
    QCOMPARE(pen.color(), QColor(10, 20, 30, 255));
    QCOMPARE(PenArguments().color(), QColor(255, 255, 0, 255));
}

void PenArgumentsTest::aColourOutOfRangeIsInvalid_data()
{
    QTest::addColumn<PenArguments>("pen");

    QTest::newRow("red of 300") << PenArguments{20, 300, 0, 0, false};
    QTest::newRow("green of -1") << PenArguments{20, 0, -1, 0, false};
    QTest::newRow("blue of 256") << PenArguments{20, 255, 255, 256, false};
}

void PenArgumentsTest::aColourOutOfRangeIsInvalid()
{
    // given
    QFETCH(PenArguments, pen);
    QTest::ignoreMessage(QtWarningMsg, "QColor::setRgb: RGB parameters out of range");

    // when
    const QColor color = pen.color();

    // then
    QVERIFY(!color.isValid());
    QCOMPARE(color.rgba(), qRgba(0, 0, 0, 255));
}

REGISTER_TEST(PenArgumentsTest, TestSupport::NoApplication)
#include "penargumentstest.moc"
