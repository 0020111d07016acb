#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

using namespace PenTest;

namespace {

constexpr int pen = 5; // pixels

/// To and fro in lines, 12 pixels on with each call.
class Path {
public:
    explicit Path(QSize area)
        : columns(area.width() / step - 2)
        , rows(area.height() / step - 2)
    {
    }

    QPointF next()
    {
        const int row = number / columns % rows;
        const int column = number % columns;
        ++number;
        return {double(step + step * (row % 2 ? columns - 1 - column : column)),
                double(step + step * row)};
    }

private:
    static constexpr int step = 12;
    const int columns;
    const int rows;
    int number = 0;
};

}

/// What a pointer move costs in the program, and the painting of the whole that it must not cost.
class PaintBench : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aMoveInAStroke();
    void aMoveWithoutAButton();
    void theWholeFrame();
};

void PaintBench::aMoveInAStroke()
{
    Canvas canvas(pen);
    QVERIFY(canvas.show());
    Path path(canvas.frame.size());
    const QPointF first = path.next();
    canvas.press(first);

    QBENCHMARK
    {
        canvas.moveTo(path.next());
        Canvas::endTurn();
    }

    QCOMPARE(canvas.onScreen(int(first.x()), int(first.y())), QColor(Qt::red));
}

void PaintBench::aMoveWithoutAButton()
{
    Canvas canvas(pen);
    QVERIFY(canvas.show());
    Path path(canvas.frame.size());

    QBENCHMARK
    {
        canvas.hoverTo(path.next());
        Canvas::endTurn();
    }

    QVERIFY(canvas.inkInPicture().isEmpty());
}

void PaintBench::theWholeFrame()
{
    Canvas canvas(pen);
    QVERIFY(canvas.show());
    canvas.draw({{20, 20}, {200, 200}});

    QBENCHMARK
    {
        canvas.frame.repaint();
    }

    QCOMPARE(canvas.onScreen(100, 100), QColor(Qt::red));
}

REGISTER_TEST(PaintBench, QApplication)
#include "paintbench.moc"
