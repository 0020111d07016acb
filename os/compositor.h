#pragma once

#include <QObject>

#include <memory>

namespace osUtils::X11 {
class SelectionWatch;
}

namespace osUtils::System {

/// The desktop's compositor, without which a translucent window is black where nothing is painted.
/// Window systems other than X11 are taken to have one always.
class Compositor : public QObject {
    Q_OBJECT

public:
    Compositor();
    ~Compositor() override;

    [[nodiscard]] bool isRunning() const;

signals:
    void ended();

private:
    std::unique_ptr<X11::SelectionWatch> watch;
};

}
