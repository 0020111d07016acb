#include "bench/desktop/paths.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QLineF>
#include <QTest>

using namespace Bench;

namespace {

constexpr QSize screen(1920, 1080);
constexpr int pen = 5; // pixels

bool stayApart(const QList<QPoint>& points, int distance)
{
    for (qsizetype one = 0; one < points.size(); ++one) {
        for (qsizetype other = one + 1; other < points.size(); ++other) {
            if (QLineF(points.at(one), points.at(other)).length() < distance)
                return false;
        }
    }
    return true;
}

}

class PathsTest : public QObject {
    Q_OBJECT

private slots:
    void linesStayOnThePaper();
    void pointsOfLinesAreBesideTheInkOfOthers();
    void theSpiralEndsOnCleanPaper();
    void gapsAreFilled();
    void strokesStayOnThePaperAndApart();
};

void PathsTest::linesStayOnThePaper()
{
    const QRect paper = paperOn(screen);
    for (const QPoint point : lines(paper, 20'001, 6))
        QVERIFY(paper.contains(point));
}

void PathsTest::pointsOfLinesAreBesideTheInkOfOthers()
{
    QVERIFY(stayApart(lines(paperOn(screen), 2000, 6), pen + 1));
}

void PathsTest::theSpiralEndsOnCleanPaper()
{
    for (const int count : {1000, 2000}) {
        // When
        const QList<QPoint> path = spiral({300, 300}, count);

        // Then
        QCOMPARE(path.size(), count);
        const QPoint end = path.last();
        const QList<QPoint> longBefore = withoutGaps(path.first(count - count / 20));
        for (const QPoint point : longBefore)
            QVERIFY(QLineF(point, end).length() > 2 * pen);
        for (const QPoint point : path)
            QVERIFY(QRect(0, 0, 600, 600).contains(point));
    }
}

void PathsTest::gapsAreFilled()
{
    const QList<QPoint> all = withoutGaps({{0, 0}, {5, 3}, {5, 9}});
    for (qsizetype next = 1; next < all.size(); ++next) {
        const QPoint step = all.at(next) - all.at(next - 1);
        QVERIFY(std::abs(step.x()) <= 1 && std::abs(step.y()) <= 1);
    }
    QCOMPARE(all.first(), QPoint(0, 0));
    QCOMPARE(all.last(), QPoint(5, 9));
}

void PathsTest::strokesStayOnThePaperAndApart()
{
    // Given
    const QRect paper = paperOn(screen);
    QList<QRect> strokes;

    for (int number = 0; number < 5000; ++number) {
        // When
        const QPoint start = strokeStart(paper, number);

        // Then
        const QRect ink(start - QPoint(3, 3), QSize(20 + 6, 6));
        QVERIFY(paper.contains(QRect(start, QSize(21, 1))));
        for (qsizetype near = qMax<qsizetype>(0, number - 70); near < number; ++near)
            QVERIFY(!strokes.at(near).intersects(ink));
        strokes.append(ink);
    }
    QVERIFY(!strokes.first().intersects(strokes.last()));
}

REGISTER_TEST(PathsTest, QCoreApplication)
#include "pathstest.moc"
