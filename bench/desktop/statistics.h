#pragma once

#include <QList>

namespace Bench {

/// The value below which this share of the values lies, the nearest one that occurred.
/// @param values  at least one, in any order     @param share  from 0 to 1
[[nodiscard]] double quantile(QList<double> values, double share);

[[nodiscard]] double median(const QList<double>& values);
[[nodiscard]] double smallest(const QList<double>& values);
[[nodiscard]] double largest(const QList<double>& values);

}
