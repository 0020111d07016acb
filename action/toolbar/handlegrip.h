#pragma once

#include <QWidget>

namespace VcAction::Toolbar {

class ActionToolbar;

/// The ridges on a palette's handle strip, which mark where the palette can be dragged. Only paints: the
/// dragging is the palette's.
class HandleGrip : public QWidget {
    Q_OBJECT

public:
    /// @param toolbar  the palette, which owns the grip and gives it its geometry
    explicit HandleGrip(ActionToolbar* toolbar);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
