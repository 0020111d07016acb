#include "tests/desktop/harness/monitordesktoptest.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// A frame that is given a size lies at the corner of the pointer's screen.
class ExplicitSizeTest : public MonitorDesktopTest {
    Q_OBJECT

private slots:
    void theFrameLiesAtTheScreensCorner_data();
    void theFrameLiesAtTheScreensCorner();

private:
    static constexpr QRect Left{0, 0, 1280, 800};
    static constexpr QRect Right{1280, 0, 1024, 768};
    static constexpr QRect Below{300, 800, 1366, 768};
};

void ExplicitSizeTest::theFrameLiesAtTheScreensCorner_data()
{
    QTest::addColumn<QByteArray>("managerName");
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<qreal>("scale");

    for (const QByteArray& name : managersWanted()) {
        QTest::addRow("%s, on the first", name.constData())
            << name << QPoint(100, 100) << Left.topLeft() << 1.0;
        QTest::addRow("%s, on the third", name.constData())
            << name << QPoint(1600, 1500) << Below.topLeft() << 1.0;
        QTest::addRow("%s, on the third, at scale 1.75", name.constData())
            << name << QPoint(1600, 1500) << Below.topLeft() << 1.75;
    }
}

void ExplicitSizeTest::theFrameLiesAtTheScreensCorner()
{
    // given
    QFETCH(QByteArray, managerName);
    QFETCH(QPoint, pointer);
    QFETCH(QPoint, corner);
    QFETCH(qreal, scale);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    QVERIFY(startWindowManager(managerName));
    QVERIFY(plugIn({Left, Right, Below}));
    desktop->backdrop.paintPattern();
    desktop->pointer.moveTo(pointer);
    const QImage before = settledPicture();

    // when
    Program tool(*desktop,
                 {.arguments = {"600", "400"},
                  .executable = qgetenv("KORVEL_EXPLICIT_FRAME"),
                  .environment = {{"QT_SCALE_FACTOR", QByteArray::number(scale)}}});
    EVENTUALLY(tool.hasKeyboard());
    desktop->backdrop.fill(Qt::white); // from here on, only the frame shows the pattern

    // then
    const QRect place(corner, QSize(600, 400) * scale);
    EVENTUALLY_COMPARE(desktop->windows.geometry(tool.frame()), place);
    EVENTUALLY_COMPARE(desktop->screen.grab(place), before.copy(place));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(tool.status(), 0);
}

REGISTER_TEST(ExplicitSizeTest, QCoreApplication)
#include "explicitsizetest.moc"
