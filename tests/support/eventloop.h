#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <functional>

namespace TestSupport {

/// What statusAfter() tells of a deed that did not end the event loop.
constexpr int stillRunning = 77;

/// Does the deed inside the application's event loop.
/// @return  the status that the loop ended with
inline int statusAfter(const std::function<void()>& deed)
{
    // Rounds of the loop in which everything that the deed left behind is done.
    constexpr int settlingRounds = 20;
    int round = 0;
    QTimer rounds;
    QObject::connect(&rounds, &QTimer::timeout, &rounds, [&] {
        if (round == 0)
            deed();
        if (++round > settlingRounds)
            QCoreApplication::exit(stillRunning);
    });
    rounds.start(0);
    return QCoreApplication::exec();
}

}
