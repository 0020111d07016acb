#pragma once

#include "bench/desktop/annotators/annotator.h"

namespace Bench {

/// gromit-mpx as Debian packages it, active from the start. Without a compositor it draws too, by
/// cutting its window to the shape of the ink, but much slower.
class GromitMpx : public Annotator {
public:
    [[nodiscard]] QByteArray name() const override { return "gromit-mpx"; }
    [[nodiscard]] Role role() const override { return Role::Peer; }
    [[nodiscard]] QByteArray executable() const override { return "/usr/bin/gromit-mpx"; }
    [[nodiscard]] QList<QByteArray> arguments() const override { return {"-a"}; }
    void writeSettings(const Home& home) const override;
    [[nodiscard]] bool wantsCompositor() const override { return true; }
    [[nodiscard]] bool showsItself() const override { return false; }
    [[nodiscard]] bool isShown(const Trial& /*trial*/) const override { return true; }
    void chooseTool(const Trial& trial) const override;
};

}
