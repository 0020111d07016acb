#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// How long after a pointer event the pixel under the pointer changes, and what a move costs.
class LatencyRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "latency"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] QList<QSize> screens() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override
    {
        return timesOftener(role) * Row::runs(role);
    }
    void measure(Trial& trial, Record& record) const override;
};

}
