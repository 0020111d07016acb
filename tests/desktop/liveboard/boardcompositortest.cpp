#include "tests/desktop/harness/compositor.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

/// The board needs a compositor, and says so.
class BoardCompositorTest : public DesktopTest {
    Q_OBJECT

private slots:
    void withoutOneItSaysSoAndEnds_data() { addManagers(); }
    void withoutOneItSaysSoAndEnds();
    void itLeavesWhenTheCompositorEnds_data() { addManagers(); }
    void itLeavesWhenTheCompositorEnds();

private:
    static void addManagers();
    [[nodiscard]] static Launch board() { return {.executable = qgetenv("KORVEL_LIVEBOARD")}; }
};

void BoardCompositorTest::addManagers()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("no window manager") << QByteArray("none");
    QTest::newRow("openbox") << QByteArray("openbox");
}

void BoardCompositorTest::withoutOneItSaysSoAndEnds()
{
    // given
    QFETCH(QByteArray, name);
    QVERIFY(startWindowManager(name));
    const QImage before = desktop->screen.grab();

    // when
    Program program(*desktop, board());

    // then
    EVENTUALLY_COMPARE(program.status(), 1);
    const QByteArray said = program.process().output();
    QVERIFY2(said.contains("liveboard: ") && said.contains("compositor"), said);
    QCOMPARE(said.count('\n'), 1);
    QCOMPARE(desktop->screen.grab(), before);
}

void BoardCompositorTest::itLeavesWhenTheCompositorEnds()
{
    // given
    QFETCH(QByteArray, name);
    QVERIFY(startWindowManager(name));
    std::optional<Compositor> compositor;
    compositor.emplace(desktop->x, desktop->display);
    EVENTUALLY(compositor->isInCharge());
    Program program(*desktop, board());
    EVENTUALLY(program.frame() != XCB_NONE);

    // when
    compositor.reset();

    // then
    EVENTUALLY_COMPARE(program.status(), 0);
    EVENTUALLY_COMPARE(desktop->screen.colourAt({600, 400}), QColor(Qt::white));
}

REGISTER_TEST(BoardCompositorTest, QCoreApplication)
#include "boardcompositortest.moc"
