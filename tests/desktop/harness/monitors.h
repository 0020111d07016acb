#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <QList>
#include <QRect>

/// Plugs monitors into a MonitorServer, arranges them and takes them away, as a user does in a
/// desktop's settings. Monitors are counted from 0; the first is the primary one, so that Qt lists
/// them in the same order.
class Monitors {
public:
    explicit Monitors(const QByteArray& displayName)
        : display(displayName)
    {
    }

    /// One monitor at each place, in device pixels of the whole desktop; no monitor where a place
    /// is empty, and none beyond the list. False on failure.
    [[nodiscard]] bool arrange(const QList<QRect>& places);

    /// As the server, and thereby Qt, calls a monitor.
    [[nodiscard]] static QByteArray name(qsizetype monitor);

private:
    [[nodiscard]] bool knowMode(QSize size, qsizetype monitor);
    [[nodiscard]] bool run(const QList<QByteArray>& arguments) const;

    const QByteArray display;
    QList<QByteArray> modes;
    qsizetype plugged = 1;
};
