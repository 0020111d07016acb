#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

#include <cmath>

/// What the numbers on the command line mean, judged by the ink of a stroke.
class ArgumentsTest : public DesktopTest {
    Q_OBJECT

private slots:
    void argumentsSetThePen_data();
    void argumentsSetThePen();
    void aPenWithoutSizeDrawsAHairline_data();
    void aPenWithoutSizeDrawsAHairline();
    void strangeArgumentsAreSurvived_data();
    void strangeArgumentsAreSurvived();

private:
    /// Draws a slanting stroke, one across for one down, through the middle of its picture.
    void drawDiagonal() const;
    [[nodiscard]] QImage diagonalPicture() const
    {
        return desktop->screen.grab({150, 150, 301, 301});
    }

    static constexpr QPoint Away{100, 700};
    static constexpr QPoint Middle{300, 300};
    static constexpr int MiddleRow = 150; // of the picture
};

void ArgumentsTest::drawDiagonal() const
{
    desktop->pointer.drag(line({200, 200}, {400, 400}));
    desktop->pointer.moveTo(Away);
}

void ArgumentsTest::argumentsSetThePen_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<int>("size");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<qreal>("opacity");

    using Arguments = QList<QByteArray>;
    const QColor yellow(255, 255, 0);
    const QColor blue(0, 0, 255);
    QTest::newRow("none") << Arguments{} << 20 << yellow << 1.0;
    QTest::newRow("all five") << Arguments{"5", "0", "0", "255", "1"} << 5 << blue << 0.5;
    QTest::newRow("size only") << Arguments{"30"} << 30 << yellow << 1.0;
    QTest::newRow("a sixth is ignored")
        << Arguments{"10", "0", "0", "255", "0", "1"} << 10 << blue << 1.0;
    QTest::newRow("empty size keeps its default")
        << Arguments{"", "0", "0", "255"} << 20 << blue << 1.0;
    QTest::newRow("blank red keeps its default")
        << Arguments{"10", " \t ", "0", "255"} << 10 << QColor(255, 0, 255) << 1.0;
    QTest::newRow("empty blue keeps its default")
        << Arguments{"10", "0", "100", "", "1"} << 10 << QColor(0, 100, 0) << 0.5;
    QTest::newRow("blanks around a number")
        << Arguments{" 12 ", "0", "0", " 255"} << 12 << blue << 1.0;
    QTest::newRow("a word for red is 0") << Arguments{"10", "abc", "0", "255"} << 10 << blue << 1.0;
    QTest::newRow("2 means transparent")
        << Arguments{"10", "0", "0", "255", "2"} << 10 << blue << 0.5;
    QTest::newRow("-1 means transparent")
        << Arguments{"10", "0", "0", "255", "-1"} << 10 << blue << 0.5;
    QTest::newRow("no means opaque") << Arguments{"10", "0", "0", "255", "no"} << 10 << blue << 1.0;
    QTest::newRow("red 300 is no colour, which is black")
        << Arguments{"10", "300", "0", "255"} << 10 << QColor(Qt::black) << 1.0;
    QTest::newRow("negative green is no colour, which is black")
        << Arguments{"10", "0", "-1", "255"} << 10 << QColor(Qt::black) << 1.0;
}

void ArgumentsTest::argumentsSetThePen()
{
    // given
    QFETCH(QList<QByteArray>, arguments);
    QFETCH(int, size);
    QFETCH(QColor, colour);
    QFETCH(qreal, opacity);
    const Program korvel(*desktop, {.arguments = arguments});
    EVENTUALLY(korvel.isReady());

    // when
    drawDiagonal();

    // then
    const QColor expected = mixed(Qt::white, colour, opacity);
    EVENTUALLY(isClose(desktop->screen.colourAt(Away), expected, 1));
    QVERIFY(isClose(desktop->screen.colourAt(Middle), expected, 1));
    const qreal width = Ink(diagonalPicture(), Qt::white, expected).acrossRow(MiddleRow) / M_SQRT2;
    QVERIFY2(qAbs(width - size) < 0.7, qPrintable(QString::number(width)));
}

void ArgumentsTest::aPenWithoutSizeDrawsAHairline_data()
{
    QTest::addColumn<QByteArray>("size");

    QTest::newRow("a word") << QByteArray("x");
    QTest::newRow("a fraction") << QByteArray("7.5");
    QTest::newRow("zero") << QByteArray("0");
}

void ArgumentsTest::aPenWithoutSizeDrawsAHairline()
{
    // given
    QFETCH(QByteArray, size);
    const Program korvel(*desktop, {.arguments = {size, "0", "0", "0"}});
    EVENTUALLY(korvel.hasKeyboard());

    // when
    drawDiagonal();

    // then
    EVENTUALLY(Ink(diagonalPicture(), Qt::white, Qt::black).acrossRow(MiddleRow) > 0.3);
    QVERIFY(Ink(diagonalPicture(), Qt::white, Qt::black).acrossRow(MiddleRow) < 2.5);
}

void ArgumentsTest::strangeArgumentsAreSurvived_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");

    using Arguments = QList<QByteArray>;
    const QByteArray endless(100'000, '7');
    QTest::newRow("bytes that are no text")
        << Arguments{"\xff\xfe\x80", "\xc3", "\xf0\x9f", "\xed\xa0\x80"};
    QTest::newRow("endless digits") << Arguments{endless, endless, endless, endless, endless};
    QTest::newRow("endless letters") << Arguments{QByteArray(100'000, 'A')};
    QTest::newRow("largest size") << Arguments{"2147483647"};
    QTest::newRow("smallest size") << Arguments{"-2147483648"};
    QTest::newRow("beyond all numbers") << Arguments{"99999999999999999999", "4294967296"};
    QTest::newRow("negative size") << Arguments{"-20", "0", "0", "0", "-5"};
    QTest::newRow("large size") << Arguments{"100000", "0", "255", "0"};
    QTest::newRow("largest colour")
        << Arguments{"20", "2147483647", "-2147483648", "2147483647", "2147483647"};
}

void ArgumentsTest::strangeArgumentsAreSurvived()
{
    // given
    QFETCH(QList<QByteArray>, arguments);
    Program korvel(*desktop, {.arguments = arguments});
    EVENTUALLY(korvel.hasKeyboard());

    // when
    drawDiagonal();
    desktop->pointer.turn(Pointer::Wheel::AwayFromUser);
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

REGISTER_TEST(ArgumentsTest, QCoreApplication)
#include "argumentstest.moc"
