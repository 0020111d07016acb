#pragma once

#include "bench/desktop/clock.h"

class XConnection;

namespace Bench {

/// Tells when the server shows another mouse cursor.
class CursorWatch {
public:
    /// From here on changes are noticed.
    explicit CursorWatch(const XConnection& connection);

    /// Returns when a change is known of that has not been told yet. Throws Failure if none comes.
    Clock::time_point waitForChange();

private:
    const XConnection& x;
    int changeEvent = 0;
};

}
