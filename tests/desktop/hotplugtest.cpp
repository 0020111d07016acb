#include "tests/desktop/harness/monitordesktoptest.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// Monitors that come, go and change while the frame is up: it can still be left, and leaves
/// nothing behind.
class HotPlugTest : public MonitorDesktopTest {
    Q_OBJECT

private slots:
    void escapeEndsTheProgramAfterwards_data() { addChanges(); }
    void escapeEndsTheProgramAfterwards();
    void aStrokeUnderWayDoesNoHarm_data() { addChanges(); }
    void aStrokeUnderWayDoesNoHarm();
    void anOpenListDoesNoHarm_data() { addChanges(); }
    void anOpenListDoesNoHarm();

private:
    static void addChanges();
    static void addChanges(const QByteArray& managerName);
    /// Ends the program by Escape and looks at what is left: white monitors, but for the bars of
    /// window managers, and no complaint.
    void leave(Program& korvel, const QList<QRect>& places) const;

    static constexpr QRect Left{0, 0, 1280, 800};
    static constexpr QRect Right{1280, 0, 1024, 768};
    static constexpr QRect Smaller{0, 0, 800, 600};
    static constexpr QRect Larger{0, 0, 1600, 1200};
    static constexpr QRect Away{};
};

void HotPlugTest::addChanges()
{
    QTest::addColumn<QByteArray>("managerName");
    QTest::addColumn<QList<QRect>>("before");
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QList<QRect>>("after");

    for (const QByteArray& name : managersWanted()) {
        // The bar of the one stays where an edge was; with the other the keyboard follows the
        // pointer to the next monitor.
        if (name != "fluxbox" && name != "i3")
            addChanges(name);
    }
}

void HotPlugTest::addChanges(const QByteArray& managerName)
{
    const QList<QRect> both{Left, Right};
    const QPoint onLeft(100, 100);
    const QPoint onRight(1700, 300);
    const auto add = [&](const char* name, const QList<QRect>& before, QPoint pointer,
                         const QList<QRect>& after) {
        QTest::addRow("%s, %s", managerName.constData(), name)
            << managerName << before << pointer << after;
    };
    add("its own goes", both, onRight, {Left});
    if (!isEveryDesktopWanted())
        return;
    add("its own, the primary, goes", both, onLeft, {Away, Right.translated(-1280, 0)});
    add("another goes", both, onLeft, {Left});
    add("another comes", {Left}, onLeft, both);
    add("another changes its mode", both, onLeft, {Left, {1280, 0, 1366, 768}});
    add("its own becomes smaller", {Left}, onLeft, {Smaller});
    add("its own becomes larger", {Left}, onLeft, {Larger});
    add("its own moves", both, onRight, {Left, {0, 800, 1024, 768}});
    add("the two change places", both, onLeft, {{1024, 0, 1280, 800}, {0, 0, 1024, 768}});
}

void HotPlugTest::leave(Program& korvel, const QList<QRect>& places) const
{
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
    QCOMPARE(korvel.process().output(), QByteArray());
    for (const QRect& monitor : places) {
        constexpr int bar = 50; // no wider
        const QRect place = monitor.adjusted(bar, bar, -bar, -bar);
        QImage white(place.size(), QImage::Format_RGB32);
        white.fill(Qt::white);
        EVENTUALLY(place.isEmpty() || desktop->screen.grab(place) == white);
    }
}

void HotPlugTest::escapeEndsTheProgramAfterwards()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(QList<QRect>, before);
    QFETCH(QPoint, pointer);
    QFETCH(QList<QRect>, after);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    QVERIFY(plugIn(before));
    QVERIFY(startWindowManager(managerName));
    desktop->pointer.moveTo(pointer);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(plugIn(after));

    // then
    leave(korvel, after);
}

void HotPlugTest::aStrokeUnderWayDoesNoHarm()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(QList<QRect>, before);
    QFETCH(QPoint, pointer);
    QFETCH(QList<QRect>, after);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    QVERIFY(plugIn(before));
    QVERIFY(startWindowManager(managerName));
    desktop->pointer.moveTo(pointer);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.press();
    desktop->pointer.moveTo(pointer + QPoint(50, 50));
    QVERIFY(plugIn(after));
    for (const QPoint& point : line({10, 10}, {700, 500}))
        desktop->pointer.moveTo(point);
    desktop->pointer.release();

    // then
    leave(korvel, after);
}

void HotPlugTest::anOpenListDoesNoHarm()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(QList<QRect>, before);
    QFETCH(QPoint, pointer);
    QFETCH(QList<QRect>, after);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    QVERIFY(plugIn(before));
    QVERIFY(startWindowManager(managerName));
    desktop->pointer.moveTo(pointer);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const QRect home = before.last().contains(pointer) ? before.last() : before.first();
    const PaletteLayout palette = PaletteLayout(home.size()).movedBy(home.topLeft());
    QVERIFY(desktop->controls.openList(palette.colourBox(), korvel));

    // when
    QVERIFY(plugIn(after));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY(!desktop->controls.isListOpen(korvel));

    // then
    leave(korvel, after);
}

REGISTER_TEST(HotPlugTest, QCoreApplication)
#include "hotplugtest.moc"
