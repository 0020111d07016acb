#include "action/widget/stylesheets.h"
#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "action/widget/vccombobox.h"
#include "action/widget/vcgroupbox.h"
#include "action/widget/vctabholder.h"
#include "tests/action/widget/expectedsheets.h"
#include "tests/support/images.h"
#include "tests/support/metamethods.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QRegularExpression>
#include <QTabBar>
#include <QTest>

using namespace VcAction::Widget;

namespace {

const QColor houseColour(255, 80, 0);

/// What the widget and its children paint themselves, without any background.
QImage ownPainting(QWidget& widget)
{
    QImage image(widget.size() * widget.devicePixelRatioF(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(widget.devicePixelRatioF());
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// A sheet as widgets have it on the screen of this run.
QString sheetHere(const QString& sheet)
{
    return StyleSheets::forDensity(sheet, qApp->devicePixelRatio());
}

/// A tab holder large enough for its tabs, inside a window as on a palette.
struct TabbedWindow {
    TabbedWindow() { holder.setFixedSize(300, 100); }

    QWidget window;
    VcTabHolder holder{&window};
};

}

class StyledWidgetsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void theSheetsKnowEachClassByItsName_data();
    void theSheetsKnowEachClassByItsName();
    void everyWidgetBeginsWithItsSheet();
    void aTabHasNoSheet();
    void everyWidgetBelongsToItsParent();
    void aGroupBoxIsFlatWithAndWithoutATitle();
    void theTabHoldersSheetFollowsTheTabWidth_data();
    void theTabHoldersSheetFollowsTheTabWidth();
    void aTabHolderWithoutTabsPaintsNothing();
    void aTabHolderPaintsOnlyItsTabs();
    void aTabPaintsNothing();
    void aListsTextIsInTheHouseColour();
    void aDisabledListKeepsTheDefaultTextColour();
    void theSheetsImagesAreFound_data();
    void theSheetsImagesAreFound();
    void aBoxesCornersAreThoseOfTheImage();
};

void StyledWidgetsTest::theSheetsKnowEachClassByItsName_data()
{
    QTest::addColumn<const QMetaObject*>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<const QMetaObject*>("base");

    QTest::newRow("tab") << &VcTab::staticMetaObject << "VcAction::Widget::VcTab"
                         << &QWidget::staticMetaObject;
    QTest::newRow("tab holder") << &VcTabHolder::staticMetaObject << "VcAction::Widget::VcTabHolder"
                                << &QTabWidget::staticMetaObject;
    QTest::newRow("group box") << &VcGroupBox::staticMetaObject << "VcAction::Widget::VcGroupBox"
                               << &QGroupBox::staticMetaObject;
    QTest::newRow("combo box") << &VcComboBox::staticMetaObject << "VcAction::Widget::VcComboBox"
                               << &QComboBox::staticMetaObject;
    QTest::newRow("check box") << &VcCheckBox::staticMetaObject << "VcAction::Widget::VcCheckBox"
                               << &QCheckBox::staticMetaObject;
}

void StyledWidgetsTest::theSheetsKnowEachClassByItsName()
{
    QFETCH(const QMetaObject*, type);
    QFETCH(QString, name);
    QFETCH(const QMetaObject*, base);

    QCOMPARE(QString(type->className()), name);
    QCOMPARE(type->superClass(), base);
    QCOMPARE(TestSupport::ownMethods(*type), QStringList());
    QVERIFY(TestSupport::hasMethodsOnly(*type));
}

void StyledWidgetsTest::everyWidgetBeginsWithItsSheet()
{
    QCOMPARE(VcTabHolder(nullptr).styleSheet(), sheetHere(ActionTest::tabHolderSheet));
    QCOMPARE(VcGroupBox(nullptr).styleSheet(), QString(ActionTest::groupBoxSheet));
    QCOMPARE(VcGroupBox("Size", nullptr).styleSheet(), QString(ActionTest::groupBoxSheet));
    QCOMPARE(VcComboBox(nullptr).styleSheet(), sheetHere(ActionTest::comboBoxSheet));
    QCOMPARE(VcCheckBox(nullptr).styleSheet(), QString(ActionTest::checkBoxSheet));
}

void StyledWidgetsTest::aTabHasNoSheet()
{
    const VcTab tab(nullptr);

    QCOMPARE(tab.styleSheet(), QString());
    QCOMPARE(tab.windowFlags(), QWidget().windowFlags());
}

void StyledWidgetsTest::everyWidgetBelongsToItsParent()
{
    // Given
    QWidget parent;

    // When
    const QList<QWidget*> widgets{new VcTab(&parent),      new VcTabHolder(&parent),
                                  new VcGroupBox(&parent), new VcGroupBox("Size", &parent),
                                  new VcComboBox(&parent), new VcCheckBox(&parent)};

    // Then
    for (const QWidget* widget : widgets)
        QCOMPARE(widget->parentWidget(), &parent);
}

void StyledWidgetsTest::aGroupBoxIsFlatWithAndWithoutATitle()
{
    const VcGroupBox titled("Size", nullptr);
    const VcGroupBox untitled(nullptr);

    QVERIFY(titled.isFlat());
    QCOMPARE(titled.title(), QString("Size"));
    QVERIFY(untitled.isFlat());
    QCOMPARE(untitled.title(), QString());
}

void StyledWidgetsTest::theTabHoldersSheetFollowsTheTabWidth_data()
{
    QTest::addColumn<int>("tabWidth");
    QTest::addColumn<QString>("declaration");

    QTest::newRow("the first width") << 126 << "width: 114px;height: 19px;";
    QTest::newRow("wider") << 140 << "width: 128px;height: 19px;";
    QTest::newRow("nothing left for the label") << 12 << "width: 0px;height: 19px;";
    QTest::newRow("less than the borders") << 10 << "width: -2px;height: 19px;";
}

void StyledWidgetsTest::theTabHoldersSheetFollowsTheTabWidth()
{
    // Given
    QFETCH(int, tabWidth);
    QFETCH(QString, declaration);
    VcTabHolder holder(nullptr);
    holder.setTabWidth(200);
    QString expected(ActionTest::tabHolderSheet);
    expected.replace("width: 114px;height: 19px;", declaration);

    // When
    holder.setTabWidth(tabWidth);

    // Then
    QCOMPARE(holder.styleSheet(), sheetHere(expected));
}

void StyledWidgetsTest::aTabHolderWithoutTabsPaintsNothing()
{
    TabbedWindow tabbed;

    const QImage image = ownPainting(tabbed.holder);

    QVERIFY(TestSupport::inkBox(image, Qt::transparent).isEmpty());
}

void StyledWidgetsTest::aTabHolderPaintsOnlyItsTabs()
{
    // Given
    TestSupport::Images images;
    TabbedWindow tabbed;
    tabbed.holder.setTabPosition(QTabWidget::South);
    tabbed.holder.addTab(new VcTab(&tabbed.window), "First");
    tabbed.holder.ensurePolished();

    // When
    const QRectF ink = TestSupport::inkBox(ownPainting(tabbed.holder), Qt::transparent);

    // Then
    QVERIFY(!ink.isEmpty());
    QVERIFY(QRectF(tabbed.holder.tabBar()->geometry()).contains(ink));
}

void StyledWidgetsTest::aTabPaintsNothing()
{
    // Given
    VcTab tab(nullptr);
    tab.resize(100, 50);
    tab.setStyleSheet("* {background-color: red;}");

    // When
    const QImage image = ownPainting(tab);

    // Then
    QVERIFY(TestSupport::inkBox(image, Qt::transparent).isEmpty());
}

void StyledWidgetsTest::aListsTextIsInTheHouseColour()
{
    // Given
    VcComboBox box(nullptr);
    box.addItem("entry");

    // When
    box.view()->ensurePolished();

    // Then
    QCOMPARE(box.view()->palette().color(QPalette::Active, QPalette::Text), houseColour);
    QCOMPARE(box.view()->font().pixelSize(), 11);
    QVERIFY(box.view()->font().bold());
}

void StyledWidgetsTest::aDisabledListKeepsTheDefaultTextColour()
{
    // Given
    const QColor defaultColour = QApplication::palette().color(QPalette::Disabled, QPalette::Text);
    VcComboBox box(nullptr);
    box.addItem("entry");
    box.setEnabled(false);

    // When
    box.view()->ensurePolished();

    // Then
    QVERIFY(!box.view()->isEnabled());
    QCOMPARE(box.view()->palette().color(QPalette::Text), defaultColour);
    QVERIFY(defaultColour != houseColour);
    QVERIFY(defaultColour != QColor(80, 80, 80));
}

void StyledWidgetsTest::theSheetsImagesAreFound_data()
{
    QTest::addColumn<qreal>("ratio");

    QTest::newRow("1") << 1.0;
    QTest::newRow("2") << 2.0;
    QTest::newRow("3") << 3.0;
}

void StyledWidgetsTest::theSheetsImagesAreFound()
{
    // Given
    QFETCH(qreal, ratio);
    TestSupport::Images images;
    const QString sheets =
        StyleSheets::forDensity(QString(ActionTest::tabHolderSheet) + ActionTest::groupBoxSheet
                                    + ActionTest::comboBoxSheet + ActionTest::checkBoxSheet,
                                ratio);

    // When
    static const QRegularExpression image("url\\(([^)]*)\\)");
    int found = 0;
    for (const QRegularExpressionMatch& match : image.globalMatch(sheets)) {
        QVERIFY2(!QPixmap(match.captured(1)).isNull(), qPrintable(match.captured(1)));
        ++found;
    }

    // Then
    QCOMPARE(found, 14);
}

void StyledWidgetsTest::aBoxesCornersAreThoseOfTheImage()
{
    // Given
    TestSupport::Images images;
    VcComboBox box(nullptr);
    box.setFixedSize(70, 50);
    box.ensurePolished();
    const int ratio = qRound(box.devicePixelRatioF());
    const QString name(ratio == 1 ? "combobox.png" : "combobox-2x.png");
    const QImage image(":/resource/action/common/Img/" + name);
    const QRect corner(QPoint(0, 0), QSize(6, 4) * ratio);

    // When
    const QImage painted = ownPainting(box).copy(corner);

    // Then
    const auto plain = [](QImage picture) {
        picture.setDevicePixelRatio(1);
        return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    QCOMPARE(plain(painted), plain(image.copy(corner)));
}

REGISTER_TEST(StyledWidgetsTest, QApplication)
#include "styledwidgetstest.moc"
