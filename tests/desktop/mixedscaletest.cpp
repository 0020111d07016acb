#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/monitordesktoptest.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

/// Screens of sizes that are no whole number of logical pixels, and of different density side by
/// side.
class MixedScaleTest : public MonitorDesktopTest {
    Q_OBJECT

private slots:
    void thePictureIsOneToOneToTheLastPixel_data() { addManagedScreens(); }
    void thePictureIsOneToOneToTheLastPixel();
    void inkIsUnderThePointersTip_data() { addScreens(); }
    void inkIsUnderThePointersTip();
    void theCloseButtonIsWhereItShows_data() { addScreens(); }
    void theCloseButtonIsWhereItShows();
    void pixelsOnAnEdgeBelongToTheirScreen_data();
    void pixelsOnAnEdgeBelongToTheirScreen();
    void oneFactorForAllScreensDoesNotMoveThem();

private:
    static void addScreens();
    static void addManagedScreens();
    /// Starts a pen of plain blue.
    [[nodiscard]] Launch launchAt(const QByteArray& factors) const
    {
        return {.arguments = {QByteArray::number(PenSize), "0", "0", "255"},
                .environment = {{"QT_SCREEN_SCALE_FACTORS", factors}}};
    }
    [[nodiscard]] static qreal factorOf(int home, const QByteArray& factors)
    {
        return factors.split(';').at(home).split('=').at(1).toDouble();
    }

    static constexpr const char* FurtherFactors[] = {
        "DUMMY0=1;DUMMY1=2",       "DUMMY0=2;DUMMY1=1",   "DUMMY0=1.25;DUMMY1=1.25",
        "DUMMY0=1.75;DUMMY1=1.75", "DUMMY0=3;DUMMY1=1.5", "DUMMY0=1.5;DUMMY1=3"};
    static constexpr QRect Left{0, 0, 1280, 800};
    static constexpr QRect Right{1280, 0, 1366, 768};
    static constexpr QRect Below{1280, 768, 1024, 600};
};

void MixedScaleTest::addScreens()
{
    QTest::addColumn<QByteArray>("factors");
    QTest::addColumn<int>("home");

    QTest::newRow("1.5 beside 2, on the first") << QByteArray("DUMMY0=1.5;DUMMY1=2") << 0;
    QTest::newRow("1.75 beside 1.5, on the second") << QByteArray("DUMMY0=1.75;DUMMY1=1.5") << 1;
    if (!isEveryDesktopWanted())
        return;
    for (const QByteArray factors : FurtherFactors) {
        for (const int home : {0, 1})
            QTest::addRow("%s, on %d", factors.constData(), home) << factors << home;
    }
}

void MixedScaleTest::addManagedScreens()
{
    QTest::addColumn<QByteArray>("managerName");
    QTest::addColumn<QByteArray>("factors");
    QTest::addColumn<int>("home");

    const QByteArray none("none");
    QTest::newRow("1.5 beside 2, on the first") << none << QByteArray("DUMMY0=1.5;DUMMY1=2") << 0;
    QTest::newRow("1.75 beside 1.5, on the second")
        << none << QByteArray("DUMMY0=1.75;DUMMY1=1.5") << 1;
    if (!isEveryDesktopWanted())
        return;
    for (const QByteArray factors : FurtherFactors) {
        for (const int home : {0, 1})
            QTest::addRow("%s, on %d", factors.constData(), home) << none << factors << home;
    }
    for (const QByteArray& name : managersWanted()) {
        for (const QByteArray factors : {"DUMMY0=3;DUMMY1=1.5", "DUMMY0=1.75;DUMMY1=3"}) {
            for (const int home : {0, 1})
                QTest::addRow("%s, %s, on %d", name.constData(), factors.constData(), home)
                    << name << factors << home;
        }
    }
}

void MixedScaleTest::thePictureIsOneToOneToTheLastPixel()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(QByteArray, factors);
    QFETCH(int, home);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    const QRect monitor = home == 0 ? Left : Right;
    QVERIFY(startWindowManager(managerName));
    QVERIFY(plugIn({Left, Right})); // some arrange the monitors as they like when they start
    desktop->backdrop.paintPattern();
    desktop->pointer.moveTo(monitor.topLeft() + QPoint(60, 60));
    const QImage before = settledPicture();

    // when
    const Program korvel(*desktop, launchAt(factors));
    EVENTUALLY(korvel.isReady());
    desktop->backdrop.fill(Qt::white); // from here on, only the frame shows the pattern

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), monitor);
    // On screen number 1 it is the whole desktop's, from its top-left corner.
    const QPoint origin = home == 0 ? Left.topLeft() : QPoint(0, 0);
    const QImage expected = before.copy({origin, monitor.size()});
    const auto pictureOnly = [&](const QImage& picture) {
        QList<QRect> own = ownAreas(monitor, factorOf(home, factors));
        for (QRect& area : own)
            area.translate(-monitor.topLeft());
        return blanked(picture, own);
    };
    EVENTUALLY_COMPARE(pictureOnly(desktop->screen.grab(monitor)), pictureOnly(expected));
}

void MixedScaleTest::inkIsUnderThePointersTip()
{
    // given
    QFETCH(QByteArray, factors);
    QFETCH(int, home);
    const QPoint corner = (home == 0 ? Left : Right).topLeft();
    QVERIFY(plugIn({Left, Right}));
    desktop->pointer.moveTo(corner + QPoint(60, 60));
    const Program korvel(*desktop, launchAt(factors));
    EVENTUALLY(korvel.isReady());

    for (const QPoint& point : {QPoint(300, 150), QPoint(401, 202), QPoint(503, 151)}) {
        // when
        desktop->pointer.click(corner + point);
        QVERIFY(parkPointer(corner + QPoint(60, point.x()), Qt::blue));

        // then
        const int reach = 40;
        const Ink dot(desktop->screen.grab(
                          {corner + point - QPoint(reach, reach), QSize(2 * reach, 2 * reach)}),
                      Qt::white, Qt::blue);
        const QPointF middle = dot.middle();
        QVERIFY2(qAbs(middle.x() - reach) < 0.1 && qAbs(middle.y() - reach) < 0.1,
                 qPrintable(QStringLiteral("%1, %2").arg(middle.x()).arg(middle.y())));
    }
}

void MixedScaleTest::theCloseButtonIsWhereItShows()
{
    // given
    QFETCH(QByteArray, factors);
    QFETCH(int, home);
    const QRect monitor = home == 0 ? Left : Right;
    QVERIFY(plugIn({Left, Right}));
    desktop->pointer.moveTo(monitor.topLeft() + QPoint(60, 60));
    Program korvel(*desktop, launchAt(factors));
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.click(PaletteLayout(monitor.size(), factorOf(home, factors))
                               .movedBy(monitor.topLeft())
                               .closeButton());

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void MixedScaleTest::pixelsOnAnEdgeBelongToTheirScreen_data()
{
    QTest::addColumn<QByteArray>("factors");
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QRect>("home");

    const auto add = [](const QByteArray& factors) {
        const char* name = factors.constData();
        QTest::addRow("%s, last column", name) << factors << QPoint(1279, 799) << Left;
        QTest::addRow("%s, first column", name) << factors << QPoint(1280, 0) << Right;
        QTest::addRow("%s, last row", name) << factors << QPoint(2645, 767) << Right;
        QTest::addRow("%s, first row", name) << factors << QPoint(2000, 768) << Below;
    };
    add("DUMMY0=2;DUMMY1=1.5;DUMMY2=1");
    if (!isEveryDesktopWanted())
        return;
    add("DUMMY0=1.75;DUMMY1=3;DUMMY2=1.25");
    add("DUMMY0=1;DUMMY1=1;DUMMY2=2");
}

void MixedScaleTest::pixelsOnAnEdgeBelongToTheirScreen()
{
    // given
    QFETCH(QByteArray, factors);
    QFETCH(QPoint, pointer);
    QFETCH(QRect, home);
    QVERIFY(plugIn({Left, Right, Below}));
    desktop->pointer.moveTo(pointer);

    // when
    const Program korvel(*desktop, launchAt(factors));
    EVENTUALLY(korvel.isReady());

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), home);
}

void MixedScaleTest::oneFactorForAllScreensDoesNotMoveThem()
{
    // given
    QVERIFY(plugIn({Left, Right, Below}));
    desktop->pointer.moveTo(Below.center());

    // when
    const Program korvel(*desktop, {.environment = {{"QT_SCALE_FACTOR", "1.75"}}});
    EVENTUALLY(korvel.isReady());

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), Below);
}

REGISTER_TEST(MixedScaleTest, QCoreApplication)
#include "mixedscaletest.moc"
