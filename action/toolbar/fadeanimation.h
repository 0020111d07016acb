#pragma once

#include <QPropertyAnimation>

namespace VcAction::Toolbar {

class ActionToolbar;

/// Animates a palette's opacity. The toolkit's window opacity has no effect on a child widget, so
/// that the values go to the palette's own opacity, not to the property of that name.
class FadeAnimation : public QPropertyAnimation {
    Q_OBJECT

public:
    explicit FadeAnimation(ActionToolbar* toolbar);

protected:
    void updateCurrentValue(const QVariant& value) override;
};

}
