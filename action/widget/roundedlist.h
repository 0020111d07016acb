#pragma once

#include <QObject>
#include <QRegion>

namespace VcAction::Widget {

/// A rectangle at (0, 0) without what lies outside its rounded corners, in whole logical pixels.
[[nodiscard]] QRegion roundedRegion(QSize size, int radius);

/// Cuts a combo box's open list to the rounded border that its sheet gives it. What the border's
/// soft edge lets through is then of the border's colour.
class RoundedList : public QObject {
    Q_OBJECT

public:
    /// @param popup  the window of the list, which owns this
    explicit RoundedList(QWidget* popup);

    bool eventFilter(QObject* popup, QEvent* event) override;
};

}
