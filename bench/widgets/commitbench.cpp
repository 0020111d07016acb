#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

using namespace PenTest;

namespace {

constexpr int pen = 5; // pixels

}

/// What a stroke costs beside its moves: the press that begins it and the release that makes it
/// last.
class CommitBench : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aClick();
    void aShortStroke();
    void aStrokeOverTheWholeFrame();
};

void CommitBench::aClick()
{
    Canvas canvas(pen);
    QVERIFY(canvas.show());

    QBENCHMARK
    {
        canvas.draw({{100, 100}});
        TestSupport::takeOverrideCursors();
    }

    QCOMPARE(canvas.inPicture(100, 100), QColor(Qt::red));
}

void CommitBench::aShortStroke()
{
    Canvas canvas(pen);
    QVERIFY(canvas.show());
    QList<QPointF> points;
    for (int move = 0; move <= 10; ++move)
        points.append(QPointF(100 + 10 * move, 100));

    QBENCHMARK
    {
        canvas.draw(points);
        TestSupport::takeOverrideCursors();
    }

    QCOMPARE(canvas.inPicture(150, 100), QColor(Qt::red));
}

void CommitBench::aStrokeOverTheWholeFrame()
{
    Canvas canvas(pen);
    QVERIFY(canvas.show());
    const QPoint end = canvas.frame.rect().bottomRight() - QPoint(10, 10);

    QBENCHMARK
    {
        canvas.draw({{10, 10}, end});
        TestSupport::takeOverrideCursors();
    }

    QCOMPARE(canvas.inPicture(10, 10), QColor(Qt::red));
}

REGISTER_TEST(CommitBench, QApplication)
#include "commitbench.moc"
