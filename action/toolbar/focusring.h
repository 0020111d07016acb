#pragma once

#include <QPointer>
#include <QWidget>

namespace VcAction::Toolbar {

class ActionToolbar;

/// The outline around that control of a palette which has the keyboard; around the current tab,
/// where that is the tab bar. Hidden while none has it.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    /// @param toolbar  the palette, which owns the ring
    explicit FocusRing(ActionToolbar* toolbar);

protected:
    void paintEvent(QPaintEvent* event) override;

private slots:
    void moveTo(QWidget* previous, QWidget* control);
    void surroundFocused();

private:
    QPointer<QWidget> focused;
};

}
