#include "bench/desktop/resultstable.h"

#include "bench/desktop/results.h"
#include "bench/desktop/statistics.h"

#include <cmath>

namespace Bench {

namespace {

/// Three significant digits, without an exponent.
QByteArray number(double value)
{
    if (value == 0)
        return "0";
    const int before = static_cast<int>(std::floor(std::log10(std::abs(value))));
    return QByteArray::number(value, 'f', std::clamp(2 - before, 0, 3));
}

QByteArray summary(const QList<double>& values)
{
    if (values.isEmpty())
        return "–";
    if (values.size() == 1)
        return number(values.first());
    return number(median(values)) + " (" + number(smallest(values)) + "–" + number(largest(values))
        + ")";
}

QByteArray tableLine(const QList<QByteArray>& cells)
{
    return "| " + cells.join(" | ") + " |\n";
}

/// Ratios are of times, not of shares or distances.
bool isCost(const QByteArray& measure)
{
    return measure.endsWith(" ms") || measure.endsWith(" MiB");
}

}

QByteArray markdownTable(const Results& results, const QByteArray& row, const QByteArray& floor)
{
    const QList<QByteArray> programs = results.programs(row);
    QList<QByteArray> header = QList<QByteArray>{"screen", "measure"} + programs;
    QList<QByteArray> compared = programs;
    compared.removeAll(floor);
    if (!programs.contains(floor))
        compared.clear();
    for (const QByteArray& program : compared)
        header.append(program + " ÷ " + floor);
    QByteArray table = tableLine(header) + tableLine(QList<QByteArray>(header.size(), "---"));
    for (const Results::Line& line : results.lines(row)) {
        QList<QByteArray> cells = {QByteArray::number(line.screen.width()) + " × "
                                       + QByteArray::number(line.screen.height()),
                                   line.measure};
        for (const QByteArray& program : programs)
            cells.append(summary(results.values(row, line, program)));
        for (const QByteArray& program : compared)
            cells.append(isCost(line.measure) ? summary(results.ratios(row, line, program, floor))
                                              : "");
        table += tableLine(cells);
    }
    return table;
}

}
