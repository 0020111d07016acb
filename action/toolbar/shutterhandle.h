#pragma once

#include <QToolButton>

namespace VcAction::Toolbar {

class ActionToolbar;

/// The button on a palette's handle strip that closes its shutter and opens it again; its arrow shows
/// which way. For the shutterHandle of derived palettes.
class ShutterHandle : public QToolButton {
    Q_OBJECT

public:
    /// @param toolbar  the palette, which owns the button
    explicit ShutterHandle(ActionToolbar* toolbar);

private slots:
    void turnArrow();
};

}
