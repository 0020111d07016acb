#include "os/uniformmemory.h"

#include <QTest>

#include <algorithm>

using namespace osUtils::System;

/// Memory that costs nothing until it is written to.
class UniformMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void everyValueIsTheOneAskedFor_data();
    void everyValueIsTheOneAskedFor();
    void aChangeIsSeenWhereItWasMade();
    void nothingIsNoMemory();
};

void UniformMemoryTest::everyValueIsTheOneAskedFor_data()
{
    QTest::addColumn<size_t>("bytes");
    QTest::addColumn<uint32_t>("value");

    QTest::newRow("one value") << size_t{4} << 7U;
    QTest::newRow("zeroes") << size_t{5'000'000} << 0U;
    QTest::newRow("several pieces") << size_t{5'000'000} << 0x01020304U;
    QTest::newRow("exactly two pieces") << size_t{2} * 1024 * 1024 << 0x01000000U;
}

void UniformMemoryTest::everyValueIsTheOneAskedFor()
{
    // given
    QFETCH(size_t, bytes);
    QFETCH(uint32_t, value);

    // when
    const UniformMemory memory = uniformMemory(bytes, value);

    // then
    QVERIFY(memory.values);
    QVERIFY(memory.bytes >= bytes);
    const uint32_t* const end = memory.values + bytes / sizeof(uint32_t);
    QVERIFY(std::all_of(static_cast<const uint32_t*>(memory.values), end,
                        [value](uint32_t found) { return found == value; }));
    releaseMemory(memory);
}

void UniformMemoryTest::aChangeIsSeenWhereItWasMade()
{
    // given
    constexpr size_t values = 3 * 1024 * 1024;
    constexpr size_t changed = 100;
    const UniformMemory memory = uniformMemory(values * sizeof(uint32_t), 5);
    QVERIFY(memory.values);

    // when
    memory.values[changed] = 6;

    // then
    QCOMPARE(std::count(memory.values, memory.values + values, 6U), 1);
    QCOMPARE(memory.values[changed], 6U);
    releaseMemory(memory);
}

void UniformMemoryTest::nothingIsNoMemory()
{
    QVERIFY(!uniformMemory(0, 1).values);
}

QTEST_APPLESS_MAIN(UniformMemoryTest)
#include "uniformmemorytest.moc"
