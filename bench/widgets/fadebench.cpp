#include "bench/widgets/tool.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

/// What the palette's fading costs.
class FadeBench : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void oneStep();
    void aMoveInAStrokeOnAFadedPalette();
};

void FadeBench::oneStep()
{
    Bench::Tool tool;
    // No fade of its own that the events of the start could begin.
    tool.palette->setFadingEnabled(false);
    QVERIFY(tool.show());
    bool faint = true;

    QBENCHMARK
    {
        tool.palette->setWindowOpacity(faint ? 0.5 : 0.6);
        QCoreApplication::processEvents();
        faint = !faint;
    }

    QVERIFY(tool.palette->windowOpacity() < 0.7);
}

void FadeBench::aMoveInAStrokeOnAFadedPalette()
{
    Bench::Tool tool;
    QVERIFY(tool.show());
    tool.palette->setWindowOpacity(0.3);
    const QPoint start = tool.palette->geometry().center() - QPoint(50, 0);
    tool.canvas.press(start);
    int move = 0;

    QBENCHMARK
    {
        tool.canvas.moveTo(start + QPoint(++move % 100, 0));
    }

    QVERIFY(!tool.canvas.inkOnScreen().isEmpty());
}

REGISTER_TEST(FadeBench, QApplication)
#include "fadebench.moc"
