#pragma once

#include <QPoint>

class QButtonGroup;
class QComboBox;
class QGroupBox;
class QWidget;

namespace VcAction::Toolbar {

/// Freehand or shapes: style buttons, and one group box in which the sizes or the shapes are to be
/// chosen, whichever the style has use for. Its widgets are their parents'; what the chosen style
/// does is the palette's.
struct ShapeChooser {
    /// The style button of the shapes; any other button's id is a style of the frame.
    static constexpr int shapeMode = 1;

    QGroupBox* groupBox;
    QComboBox* sizes;
    QComboBox* shapes;
    QButtonGroup* styles;

    /// Makes the shapes, hidden at the place of the sizes, and a button for freehand and one for
    /// the shapes.
    /// @param sizes  a child of the group box
    /// @param buttonPlace  top-left corner of the buttons in their parent, logical pixels
    [[nodiscard]] static ShapeChooser make(QComboBox* sizes, QWidget* buttonParent,
                                           QPoint buttonPlace);

    /// Shows what belongs to a style button, sizes or shapes.
    /// @return  the style for the frame
    int choose(int style) const;
};

}
