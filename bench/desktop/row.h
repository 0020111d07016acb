#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>

namespace Bench {

class Annotator;
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
    [[nodiscard]] virtual int runs(const Annotator& /*annotator*/) const { return UsualRuns; }
    /// Measures once. The program has been started just now. Throws Failure.
    virtual void measure(Trial& trial, Record& record) const = 0;

protected:
    static constexpr int UsualRuns = 5;
};

}
