#include "bench/desktop/statistics.h"

#include <algorithm>
#include <cmath>

namespace Bench {

double quantile(QList<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values.at(std::lround(share * static_cast<double>(values.size() - 1)));
}

double median(const QList<double>& values)
{
    return quantile(values, 0.5);
}

double smallest(const QList<double>& values)
{
    return quantile(values, 0);
}

double largest(const QList<double>& values)
{
    return quantile(values, 1);
}

}
