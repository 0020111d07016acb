#pragma once

#include "bench/desktop/clock.h"

#include <stdexcept>
#include <thread>

namespace Bench {

/// A program did not do what was waited for: the run gives no number.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Returns when the condition holds, which is looked at twice a millisecond: the processors are
/// left to what is waited for.
/// @param complaint  what the Failure says if it does not come true
template <typename Condition> void waitFor(Condition condition, const char* complaint)
{
    const Clock::time_point end = Clock::now() + LongestWait;
    while (!condition()) {
        if (Clock::now() > end)
            throw Failure(complaint);
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
}

}
