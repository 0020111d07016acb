#pragma once

#include <QPropertyAnimation>

class QWidget;

namespace VcAction::Toolbar {

class ActionToolbar;

/// Animates a palette's opacity. QWidget's window opacity has no effect on a child widget, so
/// that the values go to the palette's own opacity, not to the property of that name.
class FadeAnimation : public QPropertyAnimation {
    Q_OBJECT

public:
    explicit FadeAnimation(ActionToolbar* toolbar);

protected:
    void updateCurrentValue(const QVariant& value) override;
};

/// Has a palette fade out when one of its lists is closed. Closed by a key, it leaves no event of
/// the pointer that could.
class ListWatch : public QObject {
    Q_OBJECT

public:
    /// @param owner  the palette
    explicit ListWatch(ActionToolbar* owner);

private slots:
    void focusMoved(QWidget* old);

private:
    ActionToolbar* toolbar;
};

}
