#include "tests/desktop/harness/eventually.h"

std::chrono::milliseconds patience()
{
    constexpr std::chrono::milliseconds usual{20'000};
    bool isNumber = false;
    const double factor = qEnvironmentVariable("KORVEL_TEST_PATIENCE").toDouble(&isNumber);
    return isNumber && factor > 0
        ? std::chrono::milliseconds(static_cast<int>(usual.count() * factor))
        : usual;
}
