#pragma once

#include "bench/desktop/annotators/annotator.h"

namespace Bench {

/// flameshot as Debian packages it, with almost the whole screen selected and the pencil chosen.
class Flameshot : public Annotator {
public:
    [[nodiscard]] QByteArray name() const override { return "flameshot"; }
    [[nodiscard]] Role role() const override { return Role::Peer; }
    [[nodiscard]] QByteArray executable() const override { return "/usr/bin/flameshot"; }
    [[nodiscard]] QList<QByteArray> arguments() const override { return {"gui"}; }
    void writeSettings(const Home& home) const override;
    [[nodiscard]] bool isShown(const Trial& trial) const override;
    [[nodiscard]] bool drawsAtOnce() const override { return false; }
    void chooseTool(const Trial& trial) const override;
};

}
