#include "tests/desktop/harness/windowbackground.h"
#include "tests/desktop/liveboard/boardtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The board over a desktop that goes on changing.
class LiveDesktopTest : public BoardTest {
    Q_OBJECT

private slots:
    void theDesktopShowsThroughAndGoesOnChanging();
    void inkOverWhatChangesLeavesNoTrail();
    void afterwardsNothingIsLeft();

private:
    static const QList<QPoint>& path();
};

const QList<QPoint>& LiveDesktopTest::path()
{
    static const QList<QPoint> points = line({80, 80}, {380, 300}, 9)
        + line({380, 300}, {90, 290}, 9) + line({90, 290}, {350, 70}, 9);
    return points;
}

void LiveDesktopTest::theDesktopShowsThroughAndGoesOnChanging()
{
    // given
    const ClientWindow window = client(ClientWindow::Kind::Ordinary, Canvas, Qt::green);
    EVENTUALLY(shows(window, Qt::green));
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QCOMPARE(colourAt({60, 60}), QColor(Qt::green));
    QCOMPARE(colourAt({600, 60}), Paper);

    // when
    desktop->pointer.drag(path());
    EVENTUALLY_COMPARE(colourAt({230, 190}), QColor(Qt::yellow));
    window.fill(Qt::red);
    paper->fill(Qt::white);

    // then
    EVENTUALLY_COMPARE(colourAt({60, 60}), QColor(Qt::red));
    EVENTUALLY_COMPARE(colourAt({600, 60}), QColor(Qt::white));
    QCOMPARE(colourAt({230, 190}), QColor(Qt::yellow));
}

void LiveDesktopTest::inkOverWhatChangesLeavesNoTrail()
{
    // given
    const ClientWindow window = client(ClientWindow::Kind::Ordinary, Canvas, Qt::green);
    EVENTUALLY(shows(window, Qt::green));
    Program still(*desktop, board());
    EVENTUALLY(isReady(still));
    desktop->pointer.drag(path());
    desktop->pointer.moveTo(Away);
    EVENTUALLY_COMPARE(colourAt(path().last()), QColor(Qt::yellow));
    const QImage expected = settledPicture();
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(still.status(), 0);
    EVENTUALLY(shows(window, Qt::green));
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));

    // when
    desktop->pointer.moveTo(path().first());
    desktop->pointer.press();
    for (qsizetype at = 0; at < path().size(); ++at) {
        desktop->pointer.moveTo(path()[at]);
        window.fill(at % 2 == 0 ? Qt::magenta : Qt::cyan);
    }
    desktop->pointer.release();
    window.fill(Qt::green);
    desktop->pointer.moveTo(Away);

    // then
    const QList<QRect> besides{palette().area().adjusted(-2, -2, 2, 2)};
    EVENTUALLY_COMPARE(drawing(), blanked(expected, besides));
}

void LiveDesktopTest::afterwardsNothingIsLeft()
{
    // given
    setBackground(desktop->x, paper->id(), Backdrop::pattern(desktop->x.size()));
    const QImage before = settledPicture();
    Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    desktop->pointer.drag(path());
    EVENTUALLY_COMPARE(colourAt({230, 190}), QColor(Qt::yellow));

    // when
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(program.status(), 0);
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

REGISTER_TEST(LiveDesktopTest, QCoreApplication)
#include "livedesktoptest.moc"
