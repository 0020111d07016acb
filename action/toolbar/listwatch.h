#pragma once

#include <QObject>

class QWidget;

namespace VcAction::Toolbar {

class ActionToolbar;

/// Has a palette fade out when one of its lists is closed. Closed by a key, it leaves no event of the pointer
/// that could.
class ListWatch : public QObject {
    Q_OBJECT

public:
    /// @param toolbar  the palette, which owns the watch
    explicit ListWatch(ActionToolbar* toolbar);

private slots:
    void focusMoved(QWidget* old);

private:
    ActionToolbar* toolbar;
};

}
