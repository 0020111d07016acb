#include "action/widget/vccolorcombobox.h"
#include "pen/pentoolbar.h"
#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

using VcAction::Toolbar::ActionToolbar;
using VcAction::Toolbar::PenToolbar;
using VcAction::Widget::VcColorComboBox;

namespace {

const QPoint onFrame(10, 10);

/// A pen frame in yellow with its palette.
struct ColouredPen {
    explicit ColouredPen(bool attach = true)
    {
        if (attach)
            pen.frame.setToolbar(&palette);
    }

    bool turn(QPoint angle, QPoint at = onFrame, QPoint pixels = QPoint())
    {
        return TestSupport::turnWheel(pen.frame, at, angle, pixels);
    }
    [[nodiscard]] QString selected() const
    {
        return palette.findChild<VcColorComboBox*>()->currentText();
    }

    PenTest::Canvas pen{20, QColor(255, 255, 0)};
    PenToolbar palette{&pen.frame};
};

}

class PenWheelTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void itStepsThroughTheColours_data();
    void itStepsThroughTheColours();
    void aNewColourReachesThePenAtOnce();
    void turnedOverThePaletteItChangesNothing();
    void withoutAPaletteItIsOnlyCounted();
    void anotherPaletteIsLeftAlone();
};

void PenWheelTest::itStepsThroughTheColours_data()
{
    QTest::addColumn<QList<QPoint>>("angles");
    QTest::addColumn<QString>("selected");

    const auto row = [](const char* name, const QList<QPoint>& angles, const char* selected) {
        QTest::newRow(name) << angles << selected;
    };
    row("a notch away from the user", {{0, 120}}, "Orange");
    row("a notch towards the user", {{0, -120}}, "Green");
    row("two notches at once", {{0, 240}}, "red");
    row("two halves", {{0, 60}, {0, 60}}, "Orange");
    row("a half and back", {{0, 60}, {0, -60}}, "Yellow");
    row("a half, back, and back again", {{0, 60}, {0, -60}, {0, -60}}, "Green");
    row("sideways", {{120, 0}}, "Yellow");
    row("half sideways, half towards the user", {{-60, 0}, {0, -60}}, "Green");
    row("as much sideways as away", {{120, 120}}, "Orange");
    row("a notch and a half twice", {{0, -180}, {0, -180}}, "Blue");
    row("pixels between two halves", {{0, 60}, {0, 0}, {0, 60}}, "Orange");
    row("past the first colour", {{0, 120}, {0, 120}, {0, 120}}, "Black");
}

void PenWheelTest::itStepsThroughTheColours()
{
    // Given
    QFETCH(QList<QPoint>, angles);
    ColouredPen coloured;

    // When
    for (const QPoint angle : angles)
        QVERIFY(coloured.turn(angle, onFrame, QPoint(4, 11)));

    // Then
    QTEST(coloured.selected(), "selected");
}

void PenWheelTest::aNewColourReachesThePenAtOnce()
{
    // Given
    ColouredPen coloured;
    TestSupport::takeOverrideCursors();

    // When
    coloured.turn({0, 120});

    // Then
    QCOMPARE(coloured.pen.frame.penColor(), QColor(255, 80, 0));
    QCOMPARE(TestSupport::takeOverrideCursors().size(), 1);
}

void PenWheelTest::turnedOverThePaletteItChangesNothing()
{
    // Given
    ColouredPen coloured;
    const QRect palette = coloured.palette.geometry();
    coloured.turn({0, 60});

    // When
    coloured.turn({0, 60}, palette.center());
    coloured.turn({0, 120}, palette.topLeft());
    coloured.turn({0, -120}, palette.bottomRight());

    // Then
    QCOMPARE(coloured.selected(), QString("Yellow"));

    // When
    coloured.turn({0, 60}, palette.topLeft() - QPoint(1, 1));

    // Then
    QCOMPARE(coloured.selected(), QString("Orange"));
}

void PenWheelTest::withoutAPaletteItIsOnlyCounted()
{
    // Given
    ColouredPen coloured(false);

    // When
    const bool accepted = coloured.turn({0, 60});

    // Then
    QVERIFY(accepted);
    QCOMPARE(coloured.selected(), QString("Yellow"));

    // When
    coloured.pen.frame.setToolbar(&coloured.palette);
    coloured.turn({0, 60});

    // Then
    QCOMPARE(coloured.selected(), QString("Orange"));
}

void PenWheelTest::anotherPaletteIsLeftAlone()
{
    // Given
    PenTest::Canvas pen;
    ActionToolbar palette(&pen.frame, QSize(200, 80));
    pen.frame.setToolbar(&palette);

    // When
    const bool accepted = TestSupport::turnWheel(pen.frame, onFrame, {0, 120});

    // Then
    QVERIFY(accepted);
    QCOMPARE(pen.frame.penColor(), QColor(Qt::red));
}

REGISTER_TEST(PenWheelTest, QApplication)
#include "penwheeltest.moc"
