#pragma once

#include "bench/desktop/annotators/annotator.h"

namespace Bench {

/// The installed program.
class Korvel : public Annotator {
public:
    [[nodiscard]] QByteArray name() const override { return "Korvel"; }
    [[nodiscard]] Role role() const override { return Role::Subject; }
    [[nodiscard]] QByteArray executable() const override { return BENCH_INSTALLED_PROGRAM; }
    [[nodiscard]] QList<QByteArray> arguments() const override { return {"5", "255", "0", "0"}; }
    [[nodiscard]] bool isShown(const Trial& trial) const override;
};

}
