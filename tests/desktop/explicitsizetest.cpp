#include "tests/desktop/harness/monitordesktoptest.h"
#include "tests/desktop/harness/selection.h"

#include <QPainter>

#include <X11/keysym.h>

/// A frame that is given a size lies at the corner of the pointer's screen.
class ExplicitSizeTest : public MonitorDesktopTest {
    Q_OBJECT

private slots:
    void theFrameLiesAtTheScreensCorner_data();
    void theFrameLiesAtTheScreensCorner();

private:
    static void addRows(const char* manager, WindowManager::Kind kind);

    static constexpr QRect Left{0, 0, 1280, 800};
    static constexpr QRect Right{1280, 0, 1024, 768};
    static constexpr QRect Below{300, 800, 1366, 768};
};

void ExplicitSizeTest::addRows(const char* manager, WindowManager::Kind kind)
{
    QTest::addRow("%s, on the first", manager) << kind << QPoint(100, 100) << Left.topLeft();
    QTest::addRow("%s, on the third", manager) << kind << QPoint(1600, 1500) << Below.topLeft();
}

void ExplicitSizeTest::theFrameLiesAtTheScreensCorner_data()
{
    QTest::addColumn<WindowManager::Kind>("kind");
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QPoint>("corner");

    addRows("no window manager", WindowManager::Kind::None);
    if (!isEveryDesktopWanted())
        return;
    addRows("openbox", WindowManager::Kind::Openbox);
    addRows("xfwm4", WindowManager::Kind::Xfwm4);
}

void ExplicitSizeTest::theFrameLiesAtTheScreensCorner()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QFETCH(QPoint, pointer);
    QFETCH(QPoint, corner);
    QVERIFY(plugIn({Left, Right, Below}));
    QVERIFY(startWindowManager(kind));
    desktop->backdrop.paintPattern();
    desktop->pointer.moveTo(pointer);

    // when
    Program tool(*desktop,
                 {.arguments = {"600", "400"}, .executable = qgetenv("KORVEL_EXPLICIT_FRAME")});
    EVENTUALLY(tool.hasKeyboard());
    desktop->backdrop.fill(Qt::white); // from here on, only the frame shows the pattern

    // then
    const QRect place(corner, QSize(600, 400));
    EVENTUALLY_COMPARE(desktop->windows.geometry(tool.frame()), place);
    QImage expected(desktop->x.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter(&expected).drawImage(corner, Backdrop::pattern(desktop->x.size()), place);
    EVENTUALLY_COMPARE(desktop->screen.grab(), expected);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(tool.status(), 0);
}

QTEST_GUILESS_MAIN(ExplicitSizeTest)
#include "explicitsizetest.moc"
