#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// Whether a move late in a long stroke takes longer than an early one.
class LongStrokeRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "long-stroke"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override { return runsWithPeersOnce(role); }
    void measure(Trial& trial, Record& record) const override;
};

}
