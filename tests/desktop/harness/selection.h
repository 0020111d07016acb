#pragma once

#include <QString>

/// Whether a test is to run all of its rows, not just those that the usual test run has the time for: the environment
/// variable KORVEL_DESKTOPS is "all".
[[nodiscard]] inline bool isEveryDesktopWanted()
{
    return qEnvironmentVariable("KORVEL_DESKTOPS") == QLatin1String("all");
}
