#pragma once

#include "bench/desktop/annotators/annotator.h"

#include <QByteArray>
#include <QList>
#include <QSize>

namespace Bench {

class Record;
class Trial;

/// One thing to be measured, the same way of every program.
class Row {
public:
    virtual ~Row() = default;

    /// What it is asked for by, and the heading of its results.
    [[nodiscard]] virtual QByteArray name() const = 0;
    /// How it is measured, for the results' readers.
    [[nodiscard]] virtual QByteArray method() const = 0;
    [[nodiscard]] virtual QList<QSize> screens() const { return {{1920, 1080}, {3840, 2160}}; }
    /// How often; 0 if it does not concern the program.
    [[nodiscard]] virtual int runs(Annotator::Role role) const;
    /// The program that the others are compared with.
    [[nodiscard]] virtual QByteArray floor() const { return "bare client"; }
    /// Measures once. The program has been started just now. Throws Failure.
    virtual void measure(Trial& trial, Record& record) const = 0;

protected:
    static constexpr int UsualRuns = 5;

    /// How many times as often as usual, for what takes a moment, in which whatever else the
    /// machine does shows.
    [[nodiscard]] static int timesOftener(Annotator::Role role);
    /// For rows that take long: programs of others are measured once.
    [[nodiscard]] int runsWithPeersOnce(Annotator::Role role) const;
    /// For what no other program has.
    [[nodiscard]] static int runsOfSubject(Annotator::Role role);
};

}
