#pragma once

#include "tests/desktop/harness/childprocess.h"

struct Desktop;

namespace Bench {

/// picom, which shows translucent windows as such, for as long as the object lives.
class Compositor {
public:
    /// Returns when it has taken charge. Throws Failure if it does not, or is not installed.
    explicit Compositor(const Desktop& desktop);

private:
    ChildProcess process;
};

}
