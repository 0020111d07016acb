#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/monitordesktoptest.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QPainter>

#include <X11/keysym.h>

/// Several monitors: which of them the frame covers, with which picture, and where its palette
/// lies.
class MonitorsTest : public MonitorDesktopTest {
    Q_OBJECT

private slots:
    void theFrameCoversThePointersScreenAlone_data() { addArrangements(); }
    void theFrameCoversThePointersScreenAlone();
    void inkAndPaletteAreOnThePointersScreen_data() { addArrangements(); }
    void inkAndPaletteAreOnThePointersScreen();
    void aStrokeMayLeaveTheScreenAndComeBack();

private:
    static void addArrangements();
    static void addFurtherArrangements();
    /// What the frame freezes when the pattern is everywhere. On screen number 1 that is the
    /// picture of the whole desktop, black where no monitor is, from its top-left corner.
    [[nodiscard]] QImage frozenPattern(const QList<QRect>& places, qsizetype home) const;

    /// The smallest rectangle that holds all blue ink, be the paper white or, where no monitor is,
    /// black.
    [[nodiscard]] static QRect blueBounds(const QImage& picture);

    static constexpr QRect Left{0, 0, 1280, 800};
    static constexpr QRect Right{1280, 0, 1024, 768};
};

QRect MonitorsTest::blueBounds(const QImage& picture)
{
    QRect bounds;
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            const QColor colour = picture.pixelColor(column, row);
            if (colour.blue() - colour.red() >= 128)
                bounds |= QRect(column, row, 1, 1);
        }
    }
    return bounds;
}

void MonitorsTest::addArrangements()
{
    QTest::addColumn<QList<QRect>>("places");
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<int>("home");

    const QList<QRect> sideBySide{Left, Right};
    QTest::newRow("the last pixel of the first") << sideBySide << QPoint(1279, 400) << 0;
    QTest::newRow("the first pixel of the second") << sideBySide << QPoint(1280, 400) << 1;
    if (isEveryDesktopWanted())
        addFurtherArrangements();
}

void MonitorsTest::addFurtherArrangements()
{
    const QList<QRect> sideBySide{Left, Right};
    QTest::newRow("on the first") << sideBySide << QPoint(100, 100) << 0;
    QTest::newRow("on the second") << sideBySide << QPoint(1700, 300) << 1;
    const QList<QRect> swapped{{1280, 0, 1024, 768}, Left};
    QTest::newRow("the primary one is on the right, on it") << swapped << QPoint(1280, 767) << 0;
    QTest::newRow("the primary one is on the right, beside it") << swapped << QPoint(1279, 0) << 1;
    const QList<QRect> oneAbove{{0, 0, 1366, 768}, {0, 768, 1280, 1024}};
    QTest::newRow("above each other, last row of the upper") << oneAbove << QPoint(600, 767) << 0;
    QTest::newRow("above each other, first row of the lower") << oneAbove << QPoint(600, 768) << 1;
    const QList<QRect> leftAndAbove{
        {1024, 600, 1280, 800}, {0, 700, 1024, 768}, {1200, 0, 800, 600}};
    QTest::newRow("left of the primary one") << leftAndAbove << QPoint(1023, 1467) << 1;
    QTest::newRow("above the primary one") << leftAndAbove << QPoint(1200, 599) << 2;
    QTest::newRow("the primary one amidst") << leftAndAbove << QPoint(1024, 600) << 0;
    const QList<QRect> three{{0, 0, 1024, 768}, {1024, 0, 1280, 800}, {2304, 0, 1920, 1080}};
    QTest::newRow("three side by side, first") << three << QPoint(0, 0) << 0;
    QTest::newRow("three side by side, second") << three << QPoint(2303, 799) << 1;
    QTest::newRow("three side by side, third") << three << QPoint(2304, 1079) << 2;
    const QList<QRect> apart{{0, 0, 800, 600}, {1000, 200, 1024, 768}, {2200, 100, 1280, 800}};
    QTest::newRow("gaps between them, first") << apart << QPoint(799, 599) << 0;
    QTest::newRow("gaps between them, second") << apart << QPoint(1000, 200) << 1;
    QTest::newRow("gaps between them, third") << apart << QPoint(2200, 899) << 2;
    const QList<QRect> column{{0, 0, 1280, 800}, {100, 800, 1024, 600}, {50, 1400, 1366, 768}};
    QTest::newRow("three above each other, third") << column << QPoint(50, 1400) << 2;
}

QImage MonitorsTest::frozenPattern(const QList<QRect>& places, qsizetype home) const
{
    const QImage pattern = Backdrop::pattern(desktop->x.size());
    if (home != 1)
        return pattern.copy(places[home]);
    QImage picture(places[home].size(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    for (const QRect& place : places)
        painter.drawImage(place.topLeft(), pattern, place);
    return picture;
}

void MonitorsTest::theFrameCoversThePointersScreenAlone()
{
    // given
    QFETCH(QList<QRect>, places);
    QFETCH(QPoint, pointer);
    QFETCH(int, home);
    QVERIFY(plugIn(places));
    desktop->backdrop.paintPattern();
    desktop->pointer.moveTo(pointer);

    // when
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->backdrop.fill(Qt::white); // from here on, only the frame shows the pattern

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), places[home]);
    QImage expected(desktop->x.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter(&expected).drawImage(places[home].topLeft(), frozenPattern(places, home));
    const QList<QRect> own = ownAreas(places[home]);
    EVENTUALLY_COMPARE(blanked(desktop->screen.grab(), own), blanked(expected, own));
}

void MonitorsTest::inkAndPaletteAreOnThePointersScreen()
{
    // given
    QFETCH(QList<QRect>, places);
    QFETCH(QPoint, pointer);
    QFETCH(int, home);
    QVERIFY(plugIn(places));
    desktop->pointer.moveTo(pointer);
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "255"}});
    EVENTUALLY(korvel.isReady());
    const QPoint corner = places[home].topLeft();

    // when
    desktop->pointer.drag({corner + QPoint(200, 300), corner + QPoint(500, 300)});
    QVERIFY(parkPointer(corner + QPoint(50, 50), Qt::blue));
    desktop->pointer.moveTo(PaletteLayout(places[home].size()).movedBy(corner).handle());

    // then
    const QRect seen =
        blueBounds(desktop->screen.grab({corner + QPoint(100, 200), QSize(500, 200)}));
    QCOMPARE(seen, QRect(90, 90, 320, 20));
    const PaletteLayout palette = PaletteLayout(places[home].size()).movedBy(corner);
    EVENTUALLY(desktop->screen.colourAt(palette.swatch())
               == Qt::blue); // it fades out, then in again
}

void MonitorsTest::aStrokeMayLeaveTheScreenAndComeBack()
{
    // given
    QVERIFY(plugIn({Left, Right}));
    desktop->pointer.moveTo({600, 300});
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "255"}});
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({1000, 300}, {1500, 300}) + line({1500, 300}, {1500, 500})
                          + line({1500, 500}, {1000, 500}));

    // then
    QVERIFY(parkPointer({300, 600}, Qt::blue));
    const Ink ink(desktop->screen.grab({950, 200, 700, 400}), Qt::white, Qt::blue);
    const int edge = Left.right() - 950;
    for (const int column : {100, 200, edge})
        QVERIFY2(fitsPen(ink.acrossColumn(column) / 2, 20), QByteArray::number(column));
    QCOMPARE(ink.acrossColumn(edge + 1), 0.0);
    QCOMPARE(ink.acrossColumn(1500 - 950), 0.0);
}

REGISTER_TEST(MonitorsTest, QCoreApplication)
#include "monitorstest.moc"
