#pragma once

#include <limits>
#include <string>

namespace TestSupport {

/// What becomes of the calls by which this program changes folders. By itself nothing: they go on
/// to the system.
struct SystemCallPlan {
    /// Name of the call that fails, as in "fsync", and what it leaves in errno.
    std::string failingCall;
    int error = 0;
    /// How many calls of that name go well before, and how many fail then.
    int successes = 0;
    int failures = std::numeric_limits<int>::max();

    /// The moment at which the process is killed, counted before and after each call, where a file
    /// is written in several calls; never if negative.
    int killedAt = -1;
};

extern SystemCallPlan systemCallPlan;

}
