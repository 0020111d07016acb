#include "tests/desktop/harness/ink.h"
#include "tests/desktop/liveboard/boardtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// A palette's tabs, and a frame that is shown without taking the keyboard.
class TabsTest : public BoardTest {
    Q_OBJECT

private slots:
    void theStripAndTheTabsAreOfOneWidth_data();
    void theStripAndTheTabsAreOfOneWidth();
    void aFrameStartedWithoutRaisingLeavesTheKeyboardAlone();

private:
    static constexpr int LabelRow = 105; // below the letters, logical pixels of the palette
    static constexpr int StripRow = 114; // below the tabs

    [[nodiscard]] static Launch tabTool(const QList<QByteArray>& arguments)
    {
        Launch launch = board();
        launch.executable = qgetenv("KORVEL_TAB_TOOL");
        launch.arguments = arguments;
        return launch;
    }
    [[nodiscard]] bool isShown() const
    {
        return !isClose(colourAt(palette().at({5, 8})), Paper, 20);
    }
    /// The columns of a row of the palette, in its logical pixels, that are not paper.
    [[nodiscard]] QPair<int, int> extent(int row) const;
    /// Those that show the selected tab.
    [[nodiscard]] QPair<int, int> selectedTab() const;
};

QPair<int, int> TabsTest::extent(int row) const
{
    int last = 305;
    while (last > 0 && isClose(colourAt(palette().at({last - 0.5, row + 0.5})), Paper, 20))
        --last;
    int first = last;
    while (first > 0 && !isClose(colourAt(palette().at({first - 0.5, row + 0.5})), Paper, 20))
        --first;
    return {first, last};
}

QPair<int, int> TabsTest::selectedTab() const
{
    const QColor selected(255, 80, 0);
    int first = 41;
    while (first < 305 && !isClose(colourAt(palette().at({first + 0.5, LabelRow})), selected, 8))
        ++first;
    int last = first;
    while (last < 305 && isClose(colourAt(palette().at({last + 0.5, LabelRow})), selected, 8))
        ++last;
    return {first, last};
}

void TabsTest::theStripAndTheTabsAreOfOneWidth_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<int>("width");

    QTest::newRow("as it is at first") << QList<QByteArray>{} << 126;
    QTest::newRow("the same, set") << QList<QByteArray>{"126"} << 126;
    QTest::newRow("narrower") << QList<QByteArray>{"80"} << 80;
}

void TabsTest::theStripAndTheTabsAreOfOneWidth()
{
    // given
    QFETCH(QList<QByteArray>, arguments);
    QFETCH(int, width);
    constexpr int border = 4; // of tabs and caps
    const auto isAbout = [](QPair<int, int> found, int first, int last) {
        return qAbs(found.first - first) <= border && qAbs(found.second - last) <= border;
    };

    // when
    const Program program(*desktop, tabTool(arguments));
    EVENTUALLY(isShown());
    QVERIFY(wakePalette());

    // then
    EVENTUALLY(isAbout(extent(StripRow), 34, 47 + 2 * width));
    EVENTUALLY(isAbout(selectedTab(), 40, 40 + width));
    desktop->pointer.click(palette().at({40 + 1.5 * width, 104}));
    EVENTUALLY(isAbout(selectedTab(), 40 + width, 40 + 2 * width));
}

void TabsTest::aFrameStartedWithoutRaisingLeavesTheKeyboardAlone()
{
    // given
    QVERIFY(clickInto(*paper));

    // when
    Program program(*desktop, tabTool({}));
    EVENTUALLY(isShown());

    // then
    QCOMPARE(desktop->windows.focused(), paper->id());
    desktop->pointer.click(Canvas.center());
    EVENTUALLY(program.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(program.status(), 0);
}

REGISTER_TEST(TabsTest, QCoreApplication)
#include "tabstest.moc"
