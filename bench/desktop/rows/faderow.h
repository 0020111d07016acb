#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// What fading the palette out costs, and whether drawing meanwhile is slower.
class FadeRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "fade"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override { return runsOfSubject(role); }
    void measure(Trial& trial, Record& record) const override;

private:
    void fadeIn(const Trial& trial) const;
};

}
