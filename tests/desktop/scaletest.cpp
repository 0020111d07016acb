#include "tests/desktop/harness/cursorimage.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

/// Dense screens: the picture stays in device pixels, what is the program's own grows with the
/// scale.
class ScaleTest : public DesktopTest {
    Q_OBJECT

private slots:
    void theFrameCoversTheScreen_data() { addScales(); }
    void theFrameCoversTheScreen();
    void thePictureIsOneToOne_data() { addScales(); }
    void thePictureIsOneToOne();
    void thePictureIsOneToOneWhereADotPassed_data() { addScales(); }
    void thePictureIsOneToOneWhereADotPassed();
    void inkGrowsAndStaysCrisp_data() { addScales(); }
    void inkGrowsAndStaysCrisp();
    void thePaletteGrowsToo_data() { addScales(); }
    void thePaletteGrowsToo();
    void theCloseButtonIsWhereItShows_data() { addScales(); }
    void theCloseButtonIsWhereItShows();
    void anOpenListHasNoGreyCorners_data() { addScales(); }
    void anOpenListHasNoGreyCorners();
    void theFadedPaletteIsAsBeforeWhereADotPassed_data() { addScales(); }
    void theFadedPaletteIsAsBeforeWhereADotPassed();
    void theCursorsTipIsUnderThePointer_data() { addScales(); }
    void theCursorsTipIsUnderThePointer();
    void theDensityOfTheDesktopIsTheScale_data();
    void theDensityOfTheDesktopIsTheScale();

private:
    static constexpr int PenSize = 20; // logical pixels

    static void addScales();
    [[nodiscard]] Launch launchAt(const QByteArray& scale) const
    {
        return {.arguments = {QByteArray::number(PenSize), "0", "0", "0"},
                .environment = {{"QT_SCALE_FACTOR", scale}}};
    }
    [[nodiscard]] PaletteLayout palette(const QByteArray& scale) const
    {
        return PaletteLayout(desktop->x.size(), scale.toDouble());
    }
    /// What is not the frozen desktop: the palette and the dot under the pointer.
    [[nodiscard]] QList<QRect> ownAreas(const QByteArray& scale) const;
};

void ScaleTest::addScales()
{
    QTest::addColumn<QByteArray>("scale");

    QList<QByteArray> scales{"1", "1.5", "2"};
    if (isEveryDesktopWanted())
        scales += {"1.25", "1.75", "3"};
    for (const QByteArray& scale : std::as_const(scales))
        QTest::newRow(scale.constData()) << scale;
}

QList<QRect> ScaleTest::ownAreas(const QByteArray& scale) const
{
    constexpr int roundingMargin =
        3; // a corner at whole logical pixels need not be one in device pixels
    const int dot = qCeil(PenSize * scale.toDouble());
    const QPoint pointer = desktop->pointer.position();
    return {palette(scale).area().adjusted(-roundingMargin, -roundingMargin, roundingMargin,
                                           roundingMargin),
            QRect(pointer - QPoint(dot, dot), QSize(2 * dot, 2 * dot))};
}

void ScaleTest::theFrameCoversTheScreen()
{
    // given
    QFETCH(QByteArray, scale);

    // when
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), desktop->screen.area());
}

void ScaleTest::thePictureIsOneToOne()
{
    // given
    QFETCH(QByteArray, scale);
    desktop->backdrop.paintPattern();

    // when
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());
    desktop->backdrop.fill(Qt::white); // from here on, only the frame shows the pattern

    // then
    const QImage expected = blanked(Backdrop::pattern(desktop->x.size()), ownAreas(scale));
    EVENTUALLY_COMPARE(blanked(desktop->screen.grab(), ownAreas(scale)), expected);
}

void ScaleTest::thePictureIsOneToOneWhereADotPassed()
{
    // given
    QFETCH(QByteArray, scale);
    desktop->backdrop.paintPattern();
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());
    desktop->backdrop.fill(Qt::white);

    // when
    for (const QPoint& point : line({3, 5}, {1277, 301}, 7) + line({1201, 207}, {7, 789}, 13))
        desktop->pointer.moveTo(point);

    // then
    QVERIFY(parkPointer({200, 300}, Qt::black));
    const QImage expected = blanked(Backdrop::pattern(desktop->x.size()), ownAreas(scale));
    QCOMPARE(blanked(desktop->screen.grab(), ownAreas(scale)), expected);
}

void ScaleTest::inkGrowsAndStaysCrisp()
{
    // given
    QFETCH(QByteArray, scale);
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag({{300, 150}, {600, 150}});

    // then
    QVERIFY(parkPointer({100, 700}, Qt::black));
    const Ink stroke(desktop->screen.grab({450, 50, 1, 200}), Qt::white, Qt::black);
    const qreal expected = PenSize * scale.toDouble();
    QVERIFY2(qAbs(stroke.acrossColumn(0) - expected) <= 1,
             qPrintable(QString::number(stroke.acrossColumn(0))));
    int softPixels = 0;
    for (int row = 0; row < 200; ++row) {
        const qreal coverage = stroke.coverage({0, row});
        if (coverage > 0.02 && coverage < 0.98)
            ++softPixels;
    }
    constexpr int onePixelForEachEdge = 2;
    QVERIFY(softPixels <= onePixelForEachEdge);
}

void ScaleTest::thePaletteGrowsToo()
{
    // given
    QFETCH(QByteArray, scale);
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.moveTo(palette(scale).handle());

    // then
    EVENTUALLY_COMPARE(desktop->screen.colourAt(palette(scale).swatch()), QColor(Qt::black));
    EVENTUALLY_COMPARE(desktop->screen.colourAt(palette(scale).sizeIcon()), QColor(Qt::black));
    const QRect area = palette(scale).area();
    for (const QPoint& outside : {area.topLeft() - QPoint(3, 3), area.bottomRight() + QPoint(3, 3)})
        QCOMPARE(desktop->screen.colourAt(outside), QColor(Qt::white));
}

void ScaleTest::theCloseButtonIsWhereItShows()
{
    // given
    QFETCH(QByteArray, scale);
    Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.click(palette(scale).closeButton());

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void ScaleTest::anOpenListHasNoGreyCorners()
{
    // given
    QFETCH(QByteArray, scale);
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(desktop->controls.openList(palette(scale).sizeBox(), korvel));

    // then
    const QRect list = desktop->windows.geometry(desktop->windows.listOf(korvel.pid()));
    constexpr int radius = 5; // logical pixels
    const int side = qCeil(radius * scale.toDouble());
    // The lower ones lie above the palette, not above white.
    for (const QPoint corner : {list.topLeft(), list.topRight() - QPoint(side - 1, 0)}) {
        const QImage seen = desktop->screen.grab(QRect(corner, QSize(side, side)));
        bool isCut = false;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QColor colour = seen.pixelColor(x, y);
                isCut = isCut || (y == 0 && colour == Qt::white);
                // White, the border's orange and all between them have all the red that there is.
                QVERIFY2(colour.red() >= 250, qPrintable(colour.name()));
            }
        }
        QVERIFY(isCut);
    }
}

void ScaleTest::theFadedPaletteIsAsBeforeWhereADotPassed()
{
    // given
    QFETCH(QByteArray, scale);
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());
    const QRect area = palette(scale).area();
    QVERIFY(parkPointer({30, 30}, Qt::black));
    const QColor faded = mixed(Qt::white, Qt::black, 0.3);
    EVENTUALLY(isClose(desktop->screen.colourAt(palette(scale).swatch()), faded));
    const QImage before = settledPicture(); // the last step of the fading is a small one

    // when
    const QRect around =
        area.adjusted(-5, -5, 5, 5); // near enough for the dot to lie under the palette
    for (const QPoint& point : line(around.topLeft(), around.topRight(), 7)
             + line(around.topRight(), around.bottomRight(), 7)
             + line(around.bottomRight(), around.bottomLeft(), 7)
             + line(around.bottomLeft(), around.topLeft(), 7))
        desktop->pointer.moveTo(point);

    // then
    QVERIFY(parkPointer({30, 700}, Qt::black)); // where no dot was: all moves have been seen
    QVERIFY(parkPointer({30, 30}, Qt::black));
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

void ScaleTest::theCursorsTipIsUnderThePointer()
{
    // given
    QFETCH(QByteArray, scale);
    const Program korvel(*desktop, launchAt(scale));
    EVENTUALLY(korvel.isReady());

    // when
    const auto cursor = [&] { return CursorImage::current(desktop->x); };
    EVENTUALLY(contains(cursor().picture, Qt::black));

    // then
    // An image of so many of its own pixels is shown as it is, neither scaled nor blurred.
    const int density = qRound(scale.toDouble());
    QCOMPARE(cursor().picture.size(), QSize(32, 32) * density);
    QCOMPARE(cursor().hotSpot, QPoint(6, 29) * density);
}

void ScaleTest::theDensityOfTheDesktopIsTheScale_data()
{
    QTest::addColumn<QByteArray>("dotsPerInch"); // as desktops tell it; 96 is scale 1
    QTest::addColumn<QByteArray>("scale");

    QTest::newRow("192") << QByteArray("192") << QByteArray("2");
    if (!isEveryDesktopWanted())
        return;
    QTest::newRow("120") << QByteArray("120") << QByteArray("1.25");
    QTest::newRow("144") << QByteArray("144") << QByteArray("1.5");
    QTest::newRow("168") << QByteArray("168") << QByteArray("1.75");
    QTest::newRow("288") << QByteArray("288") << QByteArray("3");
}

void ScaleTest::theDensityOfTheDesktopIsTheScale()
{
    // given
    QFETCH(QByteArray, dotsPerInch);
    QFETCH(QByteArray, scale);
    const QByteArray resources = "Xft.dpi:\t" + dotsPerInch + '\n';
    xcb_change_property(desktop->x.raw(), XCB_PROP_MODE_REPLACE, desktop->x.root(),
                        XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 8,
                        static_cast<uint32_t>(resources.size()), resources.constData());
    desktop->backdrop.paintPattern();

    // when
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "0"}});
    EVENTUALLY(korvel.isReady());
    desktop->backdrop.fill(Qt::white);

    // then
    const QImage expected = blanked(Backdrop::pattern(desktop->x.size()), ownAreas(scale));
    EVENTUALLY_COMPARE(blanked(desktop->screen.grab(), ownAreas(scale)), expected);
    desktop->pointer.moveTo(palette(scale).handle());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(palette(scale).swatch()), QColor(Qt::black));
}

REGISTER_TEST(ScaleTest, QCoreApplication)
#include "scaletest.moc"
