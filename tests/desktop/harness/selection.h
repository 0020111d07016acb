#pragma once

#include <QByteArrayList>
#include <QString>

/// Whether a test is to run all of its rows, not just those that the usual test run has the time for: the environment
/// variable KORVEL_DESKTOPS is "all".
[[nodiscard]] inline bool isEveryDesktopWanted()
{
    return qEnvironmentVariable("KORVEL_DESKTOPS") == QLatin1String("all");
}

/// The window managers, by their names in the table (managerrecipe.h), that a test is to run with.
[[nodiscard]] inline QByteArrayList managersWanted()
{
    return isEveryDesktopWanted() ? QByteArrayList{"none", "openbox", "xfwm4"}
                                  : QByteArrayList{"none"};
}
