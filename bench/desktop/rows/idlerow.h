#pragma once

#include "bench/desktop/row.h"

namespace Bench {

/// What a program does while the user does nothing.
class IdleRow : public Row {
public:
    [[nodiscard]] QByteArray name() const override { return "idle"; }
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] QList<QSize> screens() const override { return {{1920, 1080}}; }
    [[nodiscard]] int runs(Annotator::Role role) const override { return runsWithPeersOnce(role); }
    void measure(Trial& trial, Record& record) const override;
};

}
