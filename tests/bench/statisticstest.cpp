#include "bench/desktop/statistics.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QTest>

class StatisticsTest : public QObject {
    Q_OBJECT

private slots:
    void theMedianIsTheMiddleOfAnOddNumber() { QCOMPARE(Bench::median({5, 1, 3}), 3.0); }
    void aSingleValueIsEveryQuantile();
    void quantilesAreValuesThatOccurred();
    void theEndsAreTheSmallestAndTheLargest();
};

void StatisticsTest::aSingleValueIsEveryQuantile()
{
    for (const double share : {0.0, 0.5, 0.99, 1.0})
        QCOMPARE(Bench::quantile({7}, share), 7.0);
}

void StatisticsTest::quantilesAreValuesThatOccurred()
{
    // Given
    QList<double> values;
    for (int value = 100; value >= 0; --value)
        values.append(value);

    // Then
    QCOMPARE(Bench::quantile(values, 0.95), 95.0);
    QCOMPARE(Bench::quantile(values, 0.994), 99.0);
}

void StatisticsTest::theEndsAreTheSmallestAndTheLargest()
{
    QCOMPARE(Bench::smallest({5, 1, 3}), 1.0);
    QCOMPARE(Bench::largest({5, 1, 3}), 5.0);
}

REGISTER_TEST(StatisticsTest, QCoreApplication)
#include "statisticstest.moc"
