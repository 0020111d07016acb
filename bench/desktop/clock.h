#pragma once

#include <chrono>

namespace Bench {

using Clock = std::chrono::steady_clock;

/// How long a program may take for anything before it counts as failed.
inline constexpr std::chrono::seconds LongestWait(5);

[[nodiscard]] inline double milliseconds(std::chrono::nanoseconds duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

}
