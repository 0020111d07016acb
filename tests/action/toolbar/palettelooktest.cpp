#include "action/toolbar/palettegeometry.h"
#include "action/widget/vccheckbox.h"
#include "action/widget/vccombobox.h"
#include "action/widget/vcgroupbox.h"
#include "tests/action/probes.h"
#include "tests/support/cursorstack.h"
#include "tests/support/images.h"
#include "tests/support/input.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

using namespace TestSupport;
using namespace VcAction::Widget;

namespace {

/// A palette with one control of each kind, and with tabs if wanted.
class FilledPalette : public ActionTest::PaletteProbe {
public:
    explicit FilledPalette(QWidget* parent, int tabCount = 0)
        : PaletteProbe(parent, QSize(305, 85))
    {
        for (int tab = 0; tab < tabCount; ++tab)
            addTab(QString::number(tab));
        box->setGeometry(50, 14, 71, 51);
        check->move(135, 20);
        check->setText("Check");
        button->setGeometry(135, 50, 22, 24);
        button->setCheckable(true);
        button->setChecked(true);
        button->setAutoRaise(true);
    }

    VcComboBox* box = new VcComboBox(this);
    VcCheckBox* check = new VcCheckBox(this);
    QToolButton* button = new QToolButton(this);
};

struct ShownTool {
    explicit ShownTool(int tabCount = 0)
        : palette(&frame, tabCount)
    {
        frame.setToolbar(&palette);
        expectRaiseWarning();
        frame.start();
    }

    [[nodiscard]] bool isActive() { return QTest::qWaitForWindowActive(&frame); }

    /// The control that the keyboard goes to after so many steps.
    QWidget* afterTabs(int steps)
    {
        for (int step = 0; step < steps; ++step)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        return QApplication::focusWidget();
    }

    ActionTest::FrameProbe frame;
    FilledPalette palette;
};

QPalette darkColors()
{
    QPalette colors(QColor(40, 40, 44), QColor(30, 30, 34));
    colors.setColor(QPalette::Highlight, QColor(20, 60, 120));
    return colors;
}

/// The lowest row in which a column of the palette is as light as the ridges are, logical pixels.
int lastRidgeRow(const QImage& picture, int column)
{
    // The column's left pixel: the upright line is two pixels wide, around the column's left edge.
    const auto x = static_cast<int>(column * picture.devicePixelRatio());
    int last = -1;
    for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixelColor(x, y).blue() > 120)
            last = static_cast<int>(y / picture.devicePixelRatio());
    }
    return last;
}

QRect placeIn(const QWidget& palette, const QWidget& control)
{
    return {control.mapTo(&palette, QPoint(0, 0)), control.size()};
}

}

class PaletteLookTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup();

    void theRidgesEndWhereDraggingEnds_data();
    void theRidgesEndWhereDraggingEnds();
    void theCloseButtonsImageFillsTheButton();
    void theTabKeyReachesTheCloseButtonLast();
    void aTabHolderIsReachedOnceItHasTabs();
    void theControlWithTheKeyboardIsOutlined();
    void theCurrentTabIsOutlinedWhileTheTabsHaveTheKeyboard();
    void theStylePaintsNoFocusRectangleOfItsOwn();
    void aDarkThemeChangesNothing();
    void aRightToLeftLanguageChangesNothing();
    void everythingHasAnAccessibleName();

private:
    Images images;
};

void PaletteLookTest::initTestCase()
{
    QVERIFY(images.areThere());
    QApplication::setStyle(QStyleFactory::create("Fusion"));
}

void PaletteLookTest::cleanup()
{
    QApplication::setPalette(QPalette());
    QApplication::setLayoutDirection(Qt::LeftToRight);
    takeOverrideCursors();
}

void PaletteLookTest::theRidgesEndWhereDraggingEnds_data()
{
    QTest::addColumn<int>("tabCount");

    QTest::newRow("without tabs") << 0;
    QTest::newRow("with tabs") << 2;
}

void PaletteLookTest::theRidgesEndWhereDraggingEnds()
{
    // Given
    QFETCH(int, tabCount);
    ActionTest::FrameProbe frame;
    FilledPalette palette(&frame, tabCount);

    // When
    const QImage picture = painted(palette);

    // Then
    constexpr int margin = 6;
    for (const int column : {8, 13, 18, 23, 28, 33}) {
        const int last = lastRidgeRow(picture, column);
        QVERIFY(VcAction::Toolbar::isOnHandle(QPoint(column, last), palette.size()));
        QVERIFY(!VcAction::Toolbar::isOnHandle(QPoint(column, last + margin), palette.size()));
    }
}

void PaletteLookTest::theCloseButtonsImageFillsTheButton()
{
    // Given
    ActionTest::FrameProbe frame;
    FilledPalette palette(&frame);
    QImage picture(palette.closeButton->size() * palette.devicePixelRatioF(),
                   QImage::Format_ARGB32);
    picture.setDevicePixelRatio(palette.devicePixelRatioF());
    picture.fill(Qt::transparent);

    // When
    palette.closeButton->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());

    // Then
    QCOMPARE(inkBox(picture, Qt::transparent), QRectF(palette.closeButton->rect()));
}

void PaletteLookTest::theTabKeyReachesTheCloseButtonLast()
{
    // Given
    ShownTool tool;
    QVERIFY(tool.isActive());

    // Then
    QCOMPARE(tool.afterTabs(1), tool.palette.box);
    QCOMPARE(tool.afterTabs(1), tool.palette.check);
    QCOMPARE(tool.afterTabs(1), tool.palette.button);
    QCOMPARE(tool.afterTabs(1), tool.palette.closeButton);
    QCOMPARE(tool.afterTabs(1), tool.palette.box);
}

void PaletteLookTest::aTabHolderIsReachedOnceItHasTabs()
{
    // Given
    ShownTool tool(2);
    QVERIFY(tool.isActive());

    // Then
    QVERIFY(qobject_cast<QTabBar*>(tool.afterTabs(1)));
    QCOMPARE(tool.afterTabs(1), tool.palette.box);
}

void PaletteLookTest::theControlWithTheKeyboardIsOutlined()
{
    // Given
    ShownTool tool;
    QVERIFY(tool.isActive());
    const QImage before = painted(tool.palette);

    for (int control = 0; control < 4; ++control) {
        // When
        const QWidget& focused = *tool.afterTabs(1);

        // Then
        const QImage now = painted(tool.palette);
        const QRect changed = differingBox(before, now);
        const qreal ratio = now.devicePixelRatio();
        const QRectF outline(QPointF(changed.topLeft()) / ratio, QSizeF(changed.size()) / ratio);
        const QRect place = placeIn(tool.palette, focused);
        QVERIFY(QRectF(place).adjusted(-4, -4, 4, 4).contains(outline));
        QVERIFY(outline.left() < place.left());
        QVERIFY(QRectF(tool.palette.rect()).adjusted(1, 1, -1, -1).contains(outline));
        const QColor line = colourAt(now, QPoint(place.left() - 2, place.center().y()));
        QVERIFY(areClose(line, QColor(0xb2, 0x38, 0x00), 40));
    }

    // When
    tool.frame.setFocus();

    // Then
    QVERIFY(differingBox(before, painted(tool.palette)).isEmpty());
}

void PaletteLookTest::theCurrentTabIsOutlinedWhileTheTabsHaveTheKeyboard()
{
    // Given
    ShownTool tool(2);
    QVERIFY(tool.isActive());
    auto* tabs = qobject_cast<QTabBar*>(tool.afterTabs(1));
    QVERIFY(tabs);

    for (const int tab : {1, 0}) {
        // When
        tabs->setCurrentIndex(tab);

        // Then
        const QRect place = tabs->tabRect(tab).translated(placeIn(tool.palette, *tabs).topLeft());
        const QImage now = painted(tool.palette);
        for (const int beside : {place.left() - 2, place.right() + 2}) {
            const QColor line = colourAt(now, QPoint(beside, place.center().y()));
            QVERIFY(areClose(line, QColor(0xb2, 0x38, 0x00), 60));
        }
    }
}

void PaletteLookTest::theStylePaintsNoFocusRectangleOfItsOwn()
{
    // Given
    ShownTool tool;
    QVERIFY(tool.isActive());

    for (int control = 0; control < 4; ++control) {
        tool.frame.setFocus();
        const QImage before = painted(tool.palette);

        // When
        QWidget& focused = *tool.afterTabs(control + 1);

        // Then
        QRect inside = placeIn(tool.palette, focused).adjusted(8, 8, -8, -8);
        inside.setWidth(qMin(inside.width(), 40)); // within the outline of the check box, too
        const QRect pixels(inside.topLeft() * qRound(before.devicePixelRatio()),
                           inside.size() * qRound(before.devicePixelRatio()));
        QVERIFY(differingBox(before.copy(pixels), painted(tool.palette).copy(pixels)).isEmpty());
    }
}

void PaletteLookTest::aDarkThemeChangesNothing()
{
    // Given
    ShownTool light(2);
    const QImage expected = painted(light.palette);

    // When
    QApplication::setPalette(darkColors());
    ShownTool dark(2);

    // Then
    QVERIFY(differingBox(painted(light.palette), expected).isEmpty());
    QVERIFY(differingBox(painted(dark.palette), expected).isEmpty());
}

void PaletteLookTest::aRightToLeftLanguageChangesNothing()
{
    // Given
    ShownTool leftToRight(2);
    const QImage expected = painted(leftToRight.palette);

    // When
    QApplication::setLayoutDirection(Qt::RightToLeft);
    ShownTool rightToLeft(2);

    // Then
    QVERIFY(differingBox(painted(rightToLeft.palette), expected).isEmpty());
}

void PaletteLookTest::everythingHasAnAccessibleName()
{
    // When
    ActionTest::FrameProbe frame;
    const FilledPalette palette(&frame);

    // Then
    QVERIFY(!frame.accessibleName().isEmpty());
    QVERIFY(!palette.accessibleName().isEmpty());
    QCOMPARE(palette.closeButton->accessibleName(), QString("Close"));
}

REGISTER_TEST(PaletteLookTest, QApplication)
#include "palettelooktest.moc"
