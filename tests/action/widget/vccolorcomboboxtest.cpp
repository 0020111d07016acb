#include "action/widget/vccolorcombobox.h"
#include "action/widget/stylesheets.h"
#include "tests/action/widget/expectedsheets.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/metamethods.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using VcAction::Widget::VcColorComboBox;

namespace {

/// Counts the turns of the wheel that its children leave to it.
class WheelWitness : public QWidget {
public:
    int turns = 0;

protected:
    void wheelEvent(QWheelEvent* /*event*/) override { ++turns; }
};

QStringList texts(const VcColorComboBox& box)
{
    QStringList all;
    for (int index = 0; index < box.count(); ++index)
        all.append(box.itemText(index));
    return all;
}

QList<QColor> colours(const QSignalSpy& emissions)
{
    QList<QColor> all;
    for (const QList<QVariant>& arguments : emissions)
        all.append(arguments.at(0).value<QColor>());
    return all;
}

/// Red, green and blue, red selected.
struct ThreeColours {
    ThreeColours()
    {
        box.addColor(Qt::green, "Green");
        box.addColor(Qt::blue, "Blue");
    }

    WheelWitness parent;
    VcColorComboBox box{Qt::red, "Red", &parent, nullptr};
    QSignalSpy chosen{&box, SIGNAL(colorChosen(QColor))};
};

}

class VcColorComboBoxTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void itTellsOfColoursAndTakesThem();
    void itsListIsWiderThanOtherLists();
    void itBeginsWithOneColourSelected();
    void coloursAreAddedBeforeTheDialogsEntry();
    void addingAColourSelectsAndTellsNothing();
    void everyColourShowsASwatch();
    void theDialogsEntryShowsItsImageAndHasNoColour();
    void withoutImagesTheDialogsEntryHasNoIcon();
    void selectingAColourTellsIt();
    void selectingNothingTellsNothing();
    void theOnlyEntryCountsAsAColour();
    void incrementingGoesRoundPastTheDialogsEntry_data();
    void incrementingGoesRoundPastTheDialogsEntry();
    void incrementingTellsTheNewColour();
    void incrementingByMoreThanThereAreEntriesStaysOnColours_data();
    void incrementingByMoreThanThereAreEntriesStaysOnColours();
    void incrementingTheOnlyEntryLeavesIt();
    void theWheelStepsThroughTheColours_data();
    void theWheelStepsThroughTheColours();
};

void VcColorComboBoxTest::itTellsOfColoursAndTakesThem()
{
    const QMetaObject& type = VcColorComboBox::staticMetaObject;

    QCOMPARE(QString(type.className()), QString("VcAction::Widget::VcColorComboBox"));
    QCOMPARE(QString(type.superClass()->className()), QString("VcAction::Widget::VcComboBox"));
    QCOMPARE(TestSupport::ownMethods(type),
             QStringList({"public signal colorChosen(QColor color)",
                          "public slot updateColor(int index)",
                          "public slot addColor(QColor color, QString name)",
                          "public slot increment(int step)",
                          "public slot chooseCustomColor(QColor color)"}));
    QVERIFY(TestSupport::hasMethodsOnly(type));
}

void VcColorComboBoxTest::itsListIsWiderThanOtherLists()
{
    const VcColorComboBox box(Qt::red, "Red", nullptr, nullptr);

    QCOMPARE(box.styleSheet(),
             VcAction::Widget::StyleSheets::forDensity(ActionTest::comboBoxSheet,
                                                       box.devicePixelRatioF())
                 + "VcAction--Widget--VcColorComboBox QListView{ min-width: 8em;}");
}

void VcColorComboBoxTest::itBeginsWithOneColourSelected()
{
    // Given
    QWidget parent;

    // When
    const VcColorComboBox box(Qt::red, "Red", &parent, nullptr);

    // Then
    QCOMPARE(texts(box), QStringList({"Red", "Pick Color"}));
    QCOMPARE(box.currentIndex(), 0);
    QCOMPARE(box.itemData(0), QVariant(QColor(Qt::red)));
    QCOMPARE(box.parentWidget(), &parent);
}

void VcColorComboBoxTest::coloursAreAddedBeforeTheDialogsEntry()
{
    const ThreeColours three;

    QCOMPARE(texts(three.box), QStringList({"Red", "Green", "Blue", "Pick Color"}));
    QCOMPARE(three.box.itemData(2, Qt::UserRole), QVariant(QColor(Qt::blue)));
}

void VcColorComboBoxTest::addingAColourSelectsAndTellsNothing()
{
    // Given
    ThreeColours three;
    three.box.setCurrentIndex(2);
    three.chosen.clear();

    // When
    three.box.addColor(Qt::black, "Black");

    // Then
    QCOMPARE(three.box.currentIndex(), 2);
    QCOMPARE(three.chosen.size(), 0);
}

void VcColorComboBoxTest::everyColourShowsASwatch()
{
    // Given
    VcColorComboBox box(QColor(1, 2, 3), "first", nullptr, nullptr);

    // When
    box.addColor(QColor(200, 100, 50, 128), "half-transparent");

    // Then
    QCOMPARE(box.iconSize(), QSize(35, 35));
    for (int index = 0; index < 2; ++index) {
        const QImage swatch = box.itemIcon(index).pixmap(box.iconSize()).toImage();
        const QColor colour = box.itemData(index).value<QColor>();
        QCOMPARE(swatch.size(), QSize(35, 35) * box.devicePixelRatioF());
        QVERIFY(TestSupport::areClose(TestSupport::colourAt(swatch, QPoint(0, 0)), colour, 1));
        QVERIFY(TestSupport::areClose(TestSupport::colourAt(swatch, QPoint(34, 34)), colour, 1));
    }
}

void VcColorComboBoxTest::theDialogsEntryShowsItsImageAndHasNoColour()
{
    // Given
    TestSupport::Images images;

    // When
    const VcColorComboBox box(Qt::red, "Red", nullptr, nullptr);

    // Then
    const QIcon expected(":/resource/action/common/Img/cbPick.png");
    QVERIFY(!expected.isNull());
    QCOMPARE(box.itemIcon(1).pixmap(35, 35).toImage(), expected.pixmap(35, 35).toImage());
    QVERIFY(!box.itemData(1).isValid());
}

void VcColorComboBoxTest::withoutImagesTheDialogsEntryHasNoIcon()
{
    const VcColorComboBox box(Qt::red, "Red", nullptr, nullptr);

    QVERIFY(box.itemIcon(1).pixmap(35, 35).isNull());
    QCOMPARE(box.itemText(1), QString("Pick Color"));
}

void VcColorComboBoxTest::selectingAColourTellsIt()
{
    // Given
    ThreeColours three;

    // When
    three.box.setCurrentIndex(2);
    three.box.setCurrentIndex(0);

    // Then
    QCOMPARE(colours(three.chosen), QList<QColor>({Qt::blue, Qt::red}));
}

void VcColorComboBoxTest::selectingNothingTellsNothing()
{
    // Given
    ThreeColours three;

    // When
    three.box.setCurrentIndex(-1);

    // Then
    QCOMPARE(three.chosen.size(), 0);
}

void VcColorComboBoxTest::theOnlyEntryCountsAsAColour()
{
    // Given
    ThreeColours three;
    bool dialogOpened = false;
    QTimer::singleShot(0, this, [&dialogOpened] {
        dialogOpened = QApplication::activeModalWidget();
        if (dialogOpened)
            QApplication::activeModalWidget()->close();
    });
    three.box.addCustomItem();
    three.chosen.clear();

    // When
    three.box.updateColor(0);

    // Then
    QCOMPARE(texts(three.box), QStringList("Pick Color"));
    QCOMPARE(colours(three.chosen), QList<QColor>({QColor()}));
    QCoreApplication::processEvents();
    QVERIFY(!dialogOpened);
}

void VcColorComboBoxTest::incrementingGoesRoundPastTheDialogsEntry_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("to");

    QTest::newRow("down") << 0 << 1 << 1;
    QTest::newRow("up") << 2 << -1 << 1;
    QTest::newRow("down from the last colour") << 2 << 1 << 0;
    QTest::newRow("up from the first colour") << 0 << -1 << 2;
    QTest::newRow("not at all") << 1 << 0 << 1;
    QTest::newRow("two down") << 0 << 2 << 2;
    QTest::newRow("two down onto the dialog's entry") << 1 << 2 << 0;
    QTest::newRow("two down past the dialog's entry") << 2 << 2 << 0;
    QTest::newRow("two up") << 2 << -2 << 0;
    QTest::newRow("two up past the dialog's entry") << 0 << -2 << 2;
    QTest::newRow("two up onto the dialog's entry") << 1 << -2 << 2;
    QTest::newRow("three up") << 0 << -3 << 1;
}

void VcColorComboBoxTest::incrementingGoesRoundPastTheDialogsEntry()
{
    // Given
    QFETCH(int, from);
    QFETCH(int, step);
    ThreeColours three;
    three.box.setCurrentIndex(from);

    // When
    three.box.increment(step);

    // Then
    QTEST(three.box.currentIndex(), "to");
}

void VcColorComboBoxTest::incrementingTellsTheNewColour()
{
    // Given
    ThreeColours three;

    // When
    three.box.increment(1);
    three.box.increment(1);
    three.box.increment(1);
    three.box.increment(-1);

    // Then
    QCOMPARE(colours(three.chosen), QList<QColor>({Qt::green, Qt::blue, Qt::red, Qt::blue}));
}

void VcColorComboBoxTest::incrementingByMoreThanThereAreEntriesStaysOnColours_data()
{
    QTest::addColumn<int>("step");

    for (const int step : {4, 5, 6, 7, 8, 1000001, -4, -5, -6, -7, -8, -1000001})
        QTest::addRow("by %d", step) << step;
}

void VcColorComboBoxTest::incrementingByMoreThanThereAreEntriesStaysOnColours()
{
    QFETCH(int, step);
    for (int from = 0; from < 3; ++from) {
        // Given
        ThreeColours three;
        three.box.setCurrentIndex(from);

        // When
        three.box.increment(step);

        // Then
        QVERIFY(three.box.currentIndex() >= 0);
        QVERIFY(three.box.currentIndex() < 3);
    }
}

void VcColorComboBoxTest::incrementingTheOnlyEntryLeavesIt()
{
    // Given
    VcColorComboBox box(Qt::red, "Red", nullptr, nullptr);
    box.addCustomItem();

    // When
    box.increment(1);
    box.increment(-1);
    box.increment(0);

    // Then
    QCOMPARE(box.currentIndex(), 0);
}

void VcColorComboBoxTest::theWheelStepsThroughTheColours_data()
{
    QTest::addColumn<QList<QPoint>>("angles");
    QTest::addColumn<QString>("selected");

    const auto row = [](const char* name, const QList<QPoint>& angles, const char* selected) {
        QTest::newRow(name) << angles << selected;
    };
    row("a notch away from the user", {{0, 120}}, "Red");
    row("a notch towards the user", {{0, -120}}, "Blue");
    row("two halves", {{0, -60}, {0, -60}}, "Blue");
    row("a half", {{0, -60}}, "Green");
    row("a half and back", {{0, 60}, {0, -60}}, "Green");
    row("a half, back, and back again", {{0, 60}, {0, -60}, {0, -60}}, "Blue");
    row("two notches at once", {{0, -240}}, "Red");
    row("sideways", {{-120, 0}}, "Green");
    row("half sideways, half towards the user", {{-60, 0}, {0, -60}}, "Blue");
    row("half away, half sideways, half away", {{0, 60}, {60, 0}, {0, 60}}, "Green");
    row("as much sideways as towards the user", {{-120, -120}}, "Blue");
    row("pixels between two halves", {{0, -60}, {0, 0}, {0, -60}}, "Blue");
}

void VcColorComboBoxTest::theWheelStepsThroughTheColours()
{
    // Given
    QFETCH(QList<QPoint>, angles);
    ThreeColours three;
    three.box.setCurrentIndex(1);

    // When
    for (const QPoint angle : angles) {
        const bool accepted = TestSupport::turnWheel(three.box, QPointF(5, 5), angle, QPoint(3, 9));
        QVERIFY(accepted);
    }

    // Then
    QTEST(three.box.currentText(), "selected");
    QCOMPARE(three.parent.turns, 0);
}

REGISTER_TEST(VcColorComboBoxTest, QApplication)
#include "vccolorcomboboxtest.moc"
