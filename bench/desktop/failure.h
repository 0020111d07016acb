#pragma once

#include "bench/desktop/clock.h"

#include <stdexcept>

namespace Bench {

/// A program did not do what was waited for: the run gives no number.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Returns when the condition holds, which is looked at without a pause.
/// @param complaint  what the Failure says if it does not come true
template <typename Condition> void waitFor(Condition condition, const char* complaint)
{
    const Clock::time_point end = Clock::now() + LongestWait;
    while (!condition()) {
        if (Clock::now() > end)
            throw Failure(complaint);
    }
}

}
