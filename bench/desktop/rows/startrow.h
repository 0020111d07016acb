#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// How soon after its start a program shows itself and can be drawn with.
class StartRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "start"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] QList<QSize> screens() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override
    {
        return timesOftener(role) * UsualRuns;
    }
    [[nodiscard]] QByteArray floor() const override { return "empty window"; }
    void measure(Trial& trial, Record& record) const override;
};

}
