#pragma once

#include "bench/desktop/annotators/annotator.h"

namespace Bench {

/// gromit-mpx as Debian packages it, active from the start. Without a compositor, which it does not need.
class GromitMpx : public Annotator {
public:
    [[nodiscard]] QByteArray name() const override { return "gromit-mpx"; }
    [[nodiscard]] QByteArray executable() const override { return "/usr/bin/gromit-mpx"; }
    [[nodiscard]] QList<QByteArray> arguments() const override { return {"-a"}; }
    void writeSettings(const Home& home) const override;
    [[nodiscard]] bool showsItself() const override { return false; }
    [[nodiscard]] bool isShown(const Trial& /*trial*/) const override { return true; }
    void chooseTool(const Trial& trial) const override;
    [[nodiscard]] bool isPeer() const override { return true; }
};

}
