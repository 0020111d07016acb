#pragma once

#include "bench/desktop/annotators/annotator.h"

namespace Bench {

/// The client of bench/bareclient: the least that any program needs for a line under the pointer.
class BareClient : public Annotator {
public:
    [[nodiscard]] QByteArray name() const override { return "bare client"; }
    [[nodiscard]] Role role() const override { return Role::Floor; }
    [[nodiscard]] QByteArray executable() const override { return BENCH_BARE_CLIENT; }
    [[nodiscard]] bool isShown(const Trial& trial) const override;
};

}
