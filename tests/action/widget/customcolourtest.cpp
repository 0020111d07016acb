#include "action/widget/vccolorcombobox.h"
#include "tests/action/probes.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QColorDialog>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>

using VcAction::Widget::VcColorComboBox;

namespace {

/// Red and green with the dialog's entry behind them, on a palette.
struct TwoColours {
    TwoColours() { box.addColor(Qt::green, "Green"); }

    [[nodiscard]] QStringList texts() const
    {
        QStringList all;
        for (int index = 0; index < box.count(); ++index)
            all.append(box.itemText(index));
        return all;
    }
    [[nodiscard]] QList<QColor> told() const
    {
        QList<QColor> all;
        for (const QList<QVariant>& arguments : chosen)
            all.append(arguments.at(0).value<QColor>());
        return all;
    }
    void selectPickColor() { box.setCurrentIndex(box.count() - 1); }

    ActionTest::FrameProbe frame;
    ActionTest::PaletteProbe palette{&frame};
    VcColorComboBox box{Qt::red, "Red", &palette, &palette};
    QSignalSpy chosen{&box, SIGNAL(colorChosen(QColor))};
};

using Answer = std::function<void(QColorDialog&)>;

const Answer cancel = [](QColorDialog& dialog) { dialog.reject(); };

Answer pick(const QColor& colour)
{
    return [colour](QColorDialog& dialog) {
        dialog.setCurrentColor(colour);
        dialog.accept();
    };
}

}

class CustomColourTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".?"));
        dialogsOpened = 0;
    }

    void theDialogStartsFromTheLastColour();
    void aNewColourBecomesTheCustomEntry();
    void aNewColourAfterTheLastPresetIsToldAlone();
    void aSecondNewColourReplacesTheFirst();
    void aPresetsColourSelectsThePreset();
    void theCustomColourPickedAgainSelectsItsEntry();
    void cancellingReturnsToTheLastColour_data();
    void cancellingReturnsToTheLastColour();
    void cancellingReturnsToTheCustomColour();
    void coloursAreAddedBeforeTheCustomEntry();
    void incrementingReachesTheCustomEntry();
    void thePaletteDoesNotFadeWhileTheDialogIsOpen_data();
    void thePaletteDoesNotFadeWhileTheDialogIsOpen();
    void theDialogNeedsNoPalette();
    void noDialogOpensFromTheDialogsEntryItself();
    void theKeyboardIsBackAfterTheDialog();

private:
    /// Has the dialog, which must open, answered.
    void answerDialog(const Answer& answer)
    {
        TestSupport::expectSizeHintsWarning();
        answerAnyDialog(answer);
    }
    void answerAnyDialog(const Answer& answer)
    {
        QTimer::singleShot(0, this, [this, answer] {
            auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            ++dialogsOpened;
            answer(*dialog);
        });
    }

    int dialogsOpened = 0;
};

void CustomColourTest::theDialogStartsFromTheLastColour()
{
    // Given
    TwoColours two;
    two.box.setCurrentIndex(1);
    QColor first;
    QString title;
    QObject* parent = nullptr;
    bool native = true;
    answerDialog([&](QColorDialog& dialog) {
        first = dialog.currentColor();
        title = dialog.windowTitle();
        parent = dialog.parent();
        native = !dialog.testOption(QColorDialog::DontUseNativeDialog);
        dialog.reject();
    });

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(dialogsOpened, 1);
    QCOMPARE(first, QColor(Qt::green));
    QCOMPARE(title, QString("Choose a Custom Color"));
    QCOMPARE(parent, &two.box);
    QVERIFY(!native);
}

void CustomColourTest::aNewColourBecomesTheCustomEntry()
{
    // Given
    TwoColours two;
    answerDialog(pick(QColor(12, 34, 56)));

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(two.texts(), QStringList({"Red", "Green", "Custom", "Pick Color"}));
    QCOMPARE(two.box.currentIndex(), 2);
    QCOMPARE(two.box.itemData(2), QVariant(QColor(12, 34, 56)));
    QCOMPARE(two.told(), QList<QColor>({Qt::green, QColor(12, 34, 56)}));
    const QImage swatch = two.box.itemIcon(2).pixmap(35, 35).toImage();
    QCOMPARE(TestSupport::colourAt(swatch, QPoint(17, 17)), QColor(12, 34, 56));
}

void CustomColourTest::aNewColourAfterTheLastPresetIsToldAlone()
{
    // Given
    TwoColours two;
    two.box.setCurrentIndex(1);
    two.chosen.clear();

    // When
    two.box.chooseCustomColor(QColor(12, 34, 56));

    // Then
    QCOMPARE(two.told(), QList<QColor>({QColor(12, 34, 56)}));
}

void CustomColourTest::aSecondNewColourReplacesTheFirst()
{
    // Given
    TwoColours two;
    two.box.chooseCustomColor(QColor(12, 34, 56));
    two.chosen.clear();
    answerDialog(pick(QColor(65, 43, 21)));

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(two.texts(), QStringList({"Red", "Green", "Custom", "Pick Color"}));
    QCOMPARE(two.box.currentIndex(), 2);
    QCOMPARE(two.box.itemData(2), QVariant(QColor(65, 43, 21)));
    QCOMPARE(two.told(), QList<QColor>({QColor(65, 43, 21)}));
    const QImage swatch = two.box.itemIcon(2).pixmap(35, 35).toImage();
    QCOMPARE(TestSupport::colourAt(swatch, QPoint(17, 17)), QColor(65, 43, 21));
}

void CustomColourTest::aPresetsColourSelectsThePreset()
{
    // Given
    TwoColours two;
    answerDialog(pick(Qt::green));

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(two.texts(), QStringList({"Red", "Green", "Pick Color"}));
    QCOMPARE(two.box.currentIndex(), 1);
    QCOMPARE(two.told(), QList<QColor>({Qt::green}));
}

void CustomColourTest::theCustomColourPickedAgainSelectsItsEntry()
{
    // Given
    TwoColours two;
    two.box.chooseCustomColor(QColor(12, 34, 56));
    two.box.setCurrentIndex(0);
    two.chosen.clear();

    // When
    two.box.chooseCustomColor(QColor(12, 34, 56));

    // Then
    QCOMPARE(two.box.currentIndex(), 2);
    QCOMPARE(two.box.count(), 4);
    QCOMPARE(two.told(), QList<QColor>({QColor(12, 34, 56)}));
}

void CustomColourTest::cancellingReturnsToTheLastColour_data()
{
    QTest::addColumn<Answer>("answer");

    QTest::newRow("by its button") << cancel;
    QTest::newRow("by Escape") << Answer(
        [](QColorDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QTest::newRow("by closing it") << Answer([](QColorDialog& dialog) { dialog.close(); });
}

void CustomColourTest::cancellingReturnsToTheLastColour()
{
    // Given
    QFETCH(Answer, answer);
    TwoColours two;
    two.box.setCurrentIndex(1);
    two.chosen.clear();
    answerDialog(answer);

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(dialogsOpened, 1);
    QCOMPARE(two.texts(), QStringList({"Red", "Green", "Pick Color"}));
    QCOMPARE(two.box.currentIndex(), 1);
    QCOMPARE(two.told(), QList<QColor>({Qt::green}));
}

void CustomColourTest::cancellingReturnsToTheCustomColour()
{
    // Given
    TwoColours two;
    two.box.chooseCustomColor(QColor(12, 34, 56));
    two.chosen.clear();
    answerDialog(cancel);

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(two.box.currentIndex(), 2);
    QCOMPARE(two.told(), QList<QColor>({QColor(12, 34, 56)}));
}

void CustomColourTest::coloursAreAddedBeforeTheCustomEntry()
{
    // Given
    TwoColours two;
    two.box.chooseCustomColor(QColor(12, 34, 56));
    two.chosen.clear();

    // When
    two.box.addColor(Qt::blue, "Blue");

    // Then
    QCOMPARE(two.texts(), QStringList({"Red", "Green", "Blue", "Custom", "Pick Color"}));
    QCOMPARE(two.box.currentText(), QString("Custom"));
}

void CustomColourTest::incrementingReachesTheCustomEntry()
{
    // Given
    TwoColours two;
    two.box.chooseCustomColor(QColor(12, 34, 56));
    two.box.setCurrentIndex(0);

    // When
    two.box.increment(-1);

    // Then
    QCOMPARE(two.box.currentText(), QString("Custom"));
}

void CustomColourTest::thePaletteDoesNotFadeWhileTheDialogIsOpen_data()
{
    QTest::addColumn<Answer>("answer");

    QTest::newRow("cancelled") << cancel;
    QTest::newRow("preset picked") << pick(Qt::green);
    QTest::newRow("new colour picked") << pick(QColor(12, 34, 56));
}

void CustomColourTest::thePaletteDoesNotFadeWhileTheDialogIsOpen()
{
    // Given
    QFETCH(Answer, answer);
    TwoColours two;
    bool fadedMeanwhile = true;
    answerDialog([&](QColorDialog& dialog) {
        fadedMeanwhile = two.palette.fadingEnabled;
        answer(dialog);
    });

    // When
    two.selectPickColor();

    // Then
    QCOMPARE(dialogsOpened, 1);
    QVERIFY(!fadedMeanwhile);
    QVERIFY(two.palette.fadingEnabled);
}

void CustomColourTest::theDialogNeedsNoPalette()
{
    // Given
    VcColorComboBox box(Qt::red, "Red", nullptr, nullptr);
    answerDialog(pick(Qt::blue));

    // When
    box.setCurrentIndex(1);

    // Then
    QCOMPARE(dialogsOpened, 1);
    QCOMPARE(box.currentText(), QString("Custom"));
}

void CustomColourTest::noDialogOpensFromTheDialogsEntryItself()
{
    // Given
    TwoColours two;
    two.box.addCustomItem();
    answerAnyDialog(cancel);

    // When
    two.box.chooseCustomColor();

    // Then
    QCoreApplication::processEvents();
    QCOMPARE(dialogsOpened, 0);
    QVERIFY(two.palette.fadingEnabled);
}

void CustomColourTest::theKeyboardIsBackAfterTheDialog()
{
    // Given
    TwoColours two;
    two.frame.setToolbar(&two.palette);
    TestSupport::expectRaiseWarning();
    two.frame.start(true);
    QVERIFY(QTest::qWaitForWindowActive(&two.frame));
    QWidget* active = &two.frame;
    answerDialog([&](QColorDialog& dialog) {
        QTRY_VERIFY(dialog.isActiveWindow());
        active = QApplication::activeWindow();
        dialog.reject();
    });

    // When
    two.selectPickColor();

    // Then
    QVERIFY(active != &two.frame);
    QTRY_COMPARE(QApplication::activeWindow(), &two.frame);
}

REGISTER_TEST(CustomColourTest, QApplication)
#include "customcolourtest.moc"
