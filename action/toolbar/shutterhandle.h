#pragma once

#include <QToolButton>

namespace VcAction::Toolbar {

class ActionToolbar;

/// The button on a palette's handle strip that closes its shutter and opens it again; its arrow
/// shows which way. For the shutterHandle of derived palettes.
class ShutterHandle : public QToolButton {
    Q_OBJECT

public:
    /// @param toolbar  the palette, which owns the button
    explicit ShutterHandle(ActionToolbar* toolbar);

private slots:
    void turnArrow();
};

/// The ridges on a palette's handle strip, which mark where the palette can be dragged. Only
/// paints: the dragging is the palette's.
class HandleGrip : public QWidget {
    Q_OBJECT

public:
    /// @param toolbar  the palette, which owns the grip and gives it its geometry
    explicit HandleGrip(ActionToolbar* toolbar);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
