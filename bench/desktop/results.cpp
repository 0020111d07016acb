#include "bench/desktop/results.h"

namespace Bench {

void Results::add(const Subject& subject, const QByteArray& measure, double value)
{
    all.append({subject, measure, value});
}

QList<Results::Line> Results::lines(const QByteArray& row) const
{
    QList<Line> found;
    for (const Value& value : all) {
        const Line line{value.subject.screen, value.measure};
        if (value.subject.row == row && !found.contains(line))
            found.append(line);
    }
    return found;
}

QList<QByteArray> Results::programs(const QByteArray& row) const
{
    QList<QByteArray> found;
    for (const Value& value : all) {
        if (value.subject.row == row && !found.contains(value.subject.program))
            found.append(value.subject.program);
    }
    return found;
}

QList<Results::Value> Results::find(const QByteArray& row, const Line& line,
                                    const QByteArray& program) const
{
    QList<Value> found;
    for (const Value& value : all) {
        if (value.subject.row == row && value.subject.program == program
            && Line{value.subject.screen, value.measure} == line)
            found.append(value);
    }
    return found;
}

QList<double> Results::values(const QByteArray& row, const Line& line,
                              const QByteArray& program) const
{
    QList<double> numbers;
    for (const Value& value : find(row, line, program))
        numbers.append(value.number);
    return numbers;
}

QList<double> Results::ratios(const QByteArray& row, const Line& line, const QByteArray& program,
                              const QByteArray& comparedWith) const
{
    QList<double> quotients;
    for (const Value& value : find(row, line, program)) {
        for (const Value& other : find(row, line, comparedWith)) {
            if (other.subject.run == value.subject.run && other.number > 0)
                quotients.append(value.number / other.number);
        }
    }
    return quotients;
}

}
