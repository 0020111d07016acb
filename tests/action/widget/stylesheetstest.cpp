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

REGISTER_TEST(StyleSheetsTest, QCoreApplication)
#include "stylesheetstest.moc"
