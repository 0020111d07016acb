#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// How soon a step of the wheel, which takes the next colour, shows in the cursor.
class WheelRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "wheel"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override { return runsOfSubject(role); }
    void measure(Trial& trial, Record& record) const override;
};

}
