#pragma once

#include <QByteArray>

namespace Bench {

class Results;

/// A row's numbers as a Markdown table: for each program the median of the runs with the least and
/// the greatest, and the programs' ratios to one of them, the floor, each taken within one run.
[[nodiscard]] QByteArray markdownTable(const Results& results, const QByteArray& row,
                                       const QByteArray& floor);

}
