#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// What a short stroke costs and how much memory is used, after few strokes and after many.
class StrokesRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "strokes"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override { return runsWithPeersOnce(role); }
    void measure(Trial& trial, Record& record) const override;
};

}
