#pragma once

#include <QByteArrayList>
#include <QString>

/// Whether a test is to run all of its rows, not just those that the usual test run has the time
/// for: the environment variable KORVEL_DESKTOPS is "all".
[[nodiscard]] inline bool isEveryDesktopWanted()
{
    return qEnvironmentVariable("KORVEL_DESKTOPS") == QLatin1String("all");
}

/// The window managers, by their names in the table (managerrecipe.h), that a test is to run with.
/// Not mutter: it arranges the monitors itself, as it likes, and undoes what a test has done.
[[nodiscard]] inline QByteArrayList managersWanted()
{
    return isEveryDesktopWanted()
        ? QByteArrayList{"none",  "openbox", "fluxbox",  "xfwm4", "metacity",
                         "marco", "icewm",   "kwin_x11", "i3"}
        : QByteArrayList{"none"};
}
