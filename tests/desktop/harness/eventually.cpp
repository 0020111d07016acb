#include "tests/desktop/harness/eventually.h"

#include <utility>

namespace {

std::function<void()> recordInVain;

}

std::chrono::milliseconds patience()
{
    constexpr std::chrono::milliseconds usual{20'000};
    bool isNumber = false;
    const double factor = qEnvironmentVariable("KORVEL_TEST_PATIENCE").toDouble(&isNumber);
    return isNumber && factor > 0
        ? std::chrono::milliseconds(static_cast<int>(usual.count() * factor))
        : usual;
}

void whenInVain(std::function<void()> record)
{
    recordInVain = std::move(record);
}

void waitedInVain()
{
    if (recordInVain)
        recordInVain();
}
