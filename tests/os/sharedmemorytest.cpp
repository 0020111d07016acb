#include "os/sharedmemory.h"

#include <QTest>

#include <algorithm>
#include <span>

#include <sys/mman.h>

using osUtils::System::SharedMemory;

namespace {

// No whole number of the steps in which it is populated.
constexpr size_t bytes = size_t{300} * 1024;

std::span<unsigned char> bytesOf(const SharedMemory& memory)
{
    return {static_cast<unsigned char*>(memory.data()), bytes};
}

bool isFilledWith(const SharedMemory& memory, unsigned char value)
{
    return std::ranges::all_of(bytesOf(memory),
                               [value](unsigned char byte) { return byte == value; });
}

}

/// Memory for another process.
class SharedMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void itIsZeroAtFirst();
    void reservedAndPopulatedItIsZeroAsWell();
    void whatIsWrittenStaysWhenItIsReservedAndPopulated();
    void mappedOnceMoreItIsTheSame();
    void moreThanThereIsIsNotGiven();
};

void SharedMemoryTest::itIsZeroAtFirst()
{
    const SharedMemory memory(bytes);
    QVERIFY(memory.data());
    QVERIFY(isFilledWith(memory, 0));
}

void SharedMemoryTest::reservedAndPopulatedItIsZeroAsWell()
{
    // given
    const SharedMemory memory(bytes);

    // when
    const bool reserved = memory.reserve();
    memory.populate();

    // then
    QVERIFY(reserved);
    QVERIFY(isFilledWith(memory, 0));
}

void SharedMemoryTest::whatIsWrittenStaysWhenItIsReservedAndPopulated()
{
    // given
    const SharedMemory memory(bytes);
    std::ranges::fill(bytesOf(memory), 7);

    // when
    const bool reserved = memory.reserve();
    memory.populate();

    // then
    QVERIFY(reserved);
    QVERIFY(isFilledWith(memory, 7));
}

void SharedMemoryTest::mappedOnceMoreItIsTheSame()
{
    // given
    const SharedMemory memory(bytes);
    void* const again = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, memory.file().number(), 0);
    QVERIFY(again != MAP_FAILED);

    // when
    bytesOf(memory).back() = 7;

    // then
    QCOMPARE(static_cast<const unsigned char*>(again)[bytes - 1], 7);
    munmap(again, bytes);
}

void SharedMemoryTest::moreThanThereIsIsNotGiven()
{
    const SharedMemory memory(size_t{1} << 60U);
    QVERIFY(!memory.data());
}

QTEST_APPLESS_MAIN(SharedMemoryTest)
#include "sharedmemorytest.moc"
