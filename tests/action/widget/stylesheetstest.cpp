#include "action/widget/stylesheets.h"
#include "tests/action/widget/expectedsheets.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

using namespace VcAction::Widget;

class StyleSheetsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void everySheetIsAsAgreedLetterByLetter_data();
    void everySheetIsAsAgreedLetterByLetter();
    void onlyTheTabsWidthChangesInTheTabHoldersSheet_data();
    void onlyTheTabsWidthChangesInTheTabHoldersSheet();
    void cutsGrowWithTheImage_data();
    void cutsGrowWithTheImage();
};

void StyleSheetsTest::everySheetIsAsAgreedLetterByLetter_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("expected");

    QTest::newRow("group box") << StyleSheets::groupBox() << QString(ActionTest::groupBoxSheet);
    QTest::newRow("combo box") << StyleSheets::comboBox() << QString(ActionTest::comboBoxSheet);
    QTest::newRow("check box") << StyleSheets::checkBox() << QString(ActionTest::checkBoxSheet);
    QTest::newRow("tab holder") << StyleSheets::tabHolder(114)
                                << QString(ActionTest::tabHolderSheet);
}

void StyleSheetsTest::everySheetIsAsAgreedLetterByLetter()
{
    QFETCH(QString, sheet);
    QFETCH(QString, expected);

    QCOMPARE(sheet, expected);
}

void StyleSheetsTest::onlyTheTabsWidthChangesInTheTabHoldersSheet_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("declaration");

    QTest::newRow("narrow") << 7 << "width: 7px;height: 19px;";
    QTest::newRow("none") << 0 << "width: 0px;height: 19px;";
    QTest::newRow("negative, not clamped") << -2 << "width: -2px;height: 19px;";
    QTest::newRow("wide") << 12345 << "width: 12345px;height: 19px;";
}

void StyleSheetsTest::onlyTheTabsWidthChangesInTheTabHoldersSheet()
{
    // Given
    QFETCH(int, width);
    QFETCH(QString, declaration);
    QString expected(ActionTest::tabHolderSheet);
    expected.replace("width: 114px;height: 19px;", declaration);

    // When
    const QString sheet = StyleSheets::tabHolder(width);

    // Then
    QCOMPARE(sheet, expected);
}

void StyleSheetsTest::cutsGrowWithTheImage_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QString>("expected");

    const QString one("A {border-image: url(:/a.png) 4 19 5 6;border-top: 4px;}");
    const QString twice("A {border-image: url(:/a-2x.png) 8 38 10 12;border-top: 4px;}");
    const QString thrice("A {border-image: url(:/a-3x.png) 12 57 15 18;border-top: 4px;}");
    QTest::newRow("an ordinary screen") << one << 1.0 << one;
    QTest::newRow("a little denser") << one << 1.25 << twice;
    QTest::newRow("twice as dense") << one << 2.0 << twice;
    QTest::newRow("thrice as dense") << one << 3.0 << thrice;
    QTest::newRow("denser than any image") << one << 4.0 << thrice;
    QTest::newRow("several images") << one + one << 2.0 << twice + twice;
    const QString whole("A {image: url(:/a.png);} B {border-image: url(:/b.png);}");
    QTest::newRow("images that are not cut") << whole << 2.0 << whole;
}

void StyleSheetsTest::cutsGrowWithTheImage()
{
    QFETCH(QString, sheet);
    QFETCH(qreal, ratio);
    QFETCH(QString, expected);

    QCOMPARE(StyleSheets::forDensity(sheet, ratio), expected);
}

REGISTER_TEST(StyleSheetsTest, QCoreApplication)
#include "stylesheetstest.moc"
