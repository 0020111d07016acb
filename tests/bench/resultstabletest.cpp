#include "bench/desktop/resultstable.h"
#include "bench/desktop/results.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QTest>

using namespace Bench;

class ResultsTableTest : public QObject {
    Q_OBJECT

private slots:
    void aLineHasMediansWithBoundsAndRatiosWithinRuns();
    void aFailedRunLeavesAGap();
    void sharesHaveNoRatio();
    void digitsAreThree_data();
    void digitsAreThree();

private:
    static constexpr QSize screen{800, 600};
    static QByteArray lastLine(const Results& results)
    {
        return markdownTable(results, "row", "floor").trimmed().split('\n').last();
    }
};

void ResultsTableTest::aLineHasMediansWithBoundsAndRatiosWithinRuns()
{
    // Given
    Results results;
    const QList<double> floor = {1, 2, 4};
    const QList<double> ours = {3, 4, 12};
    for (int run = 0; run < 3; ++run) {
        results.add({"row", screen, "floor", run}, "time, ms", floor.at(run));
        results.add({"row", screen, "ours", run}, "time, ms", ours.at(run));
        results.add({"other", screen, "ours", run}, "time, ms", 99);
    }

    // Then
    QCOMPARE(markdownTable(results, "row", "floor"),
             "| screen | measure | floor | ours | ours ÷ floor |\n"
             "| --- | --- | --- | --- | --- |\n"
             "| 800 × 600 | time, ms | 2.00 (1.00–4.00) | 4.00 (3.00–12.0) | 3.00 (2.00–3.00) |\n");
}

void ResultsTableTest::aFailedRunLeavesAGap()
{
    // Given
    Results results;
    results.add({"row", screen, "floor", 1}, "time, ms", 1);
    results.add({"row", screen, "ours", 2}, "time, ms", 3);

    // Then
    QCOMPARE(lastLine(results), "| 800 × 600 | time, ms | 1.00 | 3.00 | – |");
}

void ResultsTableTest::sharesHaveNoRatio()
{
    // Given
    Results results;
    results.add({"row", screen, "floor", 1}, "share, %", 100);
    results.add({"row", screen, "ours", 1}, "share, %", 50);

    // Then
    QCOMPARE(lastLine(results), "| 800 × 600 | share, % | 100 | 50.0 |  |");
}

void ResultsTableTest::digitsAreThree_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("nothing") << 0.0 << QByteArray("0");
    QTest::newRow("thousandths") << 0.0321 << QByteArray("0.032");
    QTest::newRow("below one") << 0.4567 << QByteArray("0.457");
    QTest::newRow("ones") << 4.567 << QByteArray("4.57");
    QTest::newRow("tens") << 45.67 << QByteArray("45.7");
    QTest::newRow("thousands") << 4567.8 << QByteArray("4568");
}

void ResultsTableTest::digitsAreThree()
{
    // Given
    QFETCH(double, value);
    Results results;
    results.add({"row", screen, "ours", 1}, "wake-ups", value);

    // Then
    QFETCH(QByteArray, text);
    QCOMPARE(lastLine(results), "| 800 × 600 | wake-ups | " + text + " |");
}

REGISTER_TEST(ResultsTableTest, QCoreApplication)
#include "resultstabletest.moc"
