#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>

namespace Bench {

/// Of whom and where something was measured.
struct Subject {
    QByteArray row; ///< such as "latency"
    QSize screen;
    QByteArray program;
    int run = 0; ///< what was measured in the same run, one after the other, can be compared
};

/// All numbers of a session.
class Results {
public:
    /// @param measure  with its unit, such as "median, ms"
    void add(const Subject& subject, const QByteArray& measure, double value);

    struct Line {
        QSize screen;
        QByteArray measure;

        bool operator==(const Line&) const = default;
    };
    /// What was measured for a row, in the order in which it came.
    [[nodiscard]] QList<Line> lines(const QByteArray& row) const;
    [[nodiscard]] QList<QByteArray> programs(const QByteArray& row) const;
    /// One value for each run.
    [[nodiscard]] QList<double> values(const QByteArray& row, const Line& line,
                                       const QByteArray& program) const;
    /// One quotient for each run in which both were measured.
    [[nodiscard]] QList<double> ratios(const QByteArray& row, const Line& line,
                                       const QByteArray& program,
                                       const QByteArray& comparedWith) const;

private:
    struct Value {
        Subject subject;
        QByteArray measure;
        double number;
    };
    [[nodiscard]] QList<Value> find(const QByteArray& row, const Line& line,
                                    const QByteArray& program) const;

    QList<Value> all;
};

/// Takes down what is measured of one subject.
class Record {
public:
    Record(Results& destination, Subject measured)
        : results(destination)
        , subject(std::move(measured))
    {
    }
    void add(const QByteArray& measure, double value) { results.add(subject, measure, value); }

private:
    Results& results;
    const Subject subject;
};

}
