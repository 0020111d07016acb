#pragma once

#include "bench/desktop/annotators/annotator.h"

namespace Bench {

/// The program of bench/emptywindow: the least that a Qt program needs to show
/// something. Does not draw.
class EmptyWindow : public Annotator {
public:
    [[nodiscard]] QByteArray name() const override { return "empty window"; }
    [[nodiscard]] Role role() const override { return Role::EmptyWindow; }
    [[nodiscard]] QByteArray executable() const override { return BENCH_EMPTY_WINDOW; }
    [[nodiscard]] bool isShown(const Trial& trial) const override;
    [[nodiscard]] bool drawsAtOnce() const override { return false; }
};

}
