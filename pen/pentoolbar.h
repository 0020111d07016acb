#pragma once

#include "action/toolbar/actiontoolbar.h"

#include <QColor>

class QButtonGroup;
class QComboBox;

namespace VcAction::Frame {
class PenFrame;
}

namespace VcAction::Widget {
class VcCheckBox;
class VcColorComboBox;
class VcComboBox;
class VcGroupBox;
}

namespace VcAction::Toolbar {

/// The pen tool's palette: size, colour and transparency, each handed straight to the pen frame,
/// which is its parent.
class PenToolbar : public ActionToolbar {
    Q_OBJECT

public:
    /// @param parent  the PenFrame, whose values the controls begin with
    explicit PenToolbar(QWidget* parent);

    /// Moves on in the list of colours.
    void incrementColor(int step);
    /// Selects a pen size, adding it to the list if need be.
    void chooseCustomSize(int size);
    void fillSizeCB();
    /// Makes the shape chooser, which the palette is without until then: two buttons above
    /// "Transparent", for freehand and for shapes, and the shapes in place of the sizes. The
    /// frame's style is chosen. To be called once.
    void createShapeChooser();
    /// Fills the shapes of the shape chooser.
    void fillShapeCB();

public slots:
    void updateColor(QColor color);
    void updateSize(int index);
    /// Hands the shape at the index to the frame. Needs the shape chooser.
    void updateShape(int index);
    /// Switches between shapes (1) and the frame's other styles. Needs the shape chooser.
    void chooseStyle(int style);
    void setTransparency(bool value);

protected:
    VcAction::Widget::VcGroupBox* sizeGroupBox = nullptr;
    VcAction::Widget::VcComboBox* sizeComboBox = nullptr;
    /// Null without the shape chooser.
    QComboBox* shapeComboBox = nullptr;
    VcAction::Widget::VcColorComboBox* colorComboBox = nullptr;
    /// Null without the shape chooser. Ids are what chooseStyle() receives.
    QButtonGroup* styleButtonGroup = nullptr;
    VcAction::Widget::VcCheckBox* transparencyCheckBox = nullptr;

private:
    [[nodiscard]] VcAction::Frame::PenFrame* frame() const;
    void connectControls();
};

}
