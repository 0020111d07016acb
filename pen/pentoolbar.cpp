#include "pen/pentoolbar.h"

#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "action/widget/vccombobox.h"
#include "action/widget/vcgroupbox.h"
#include "pen/pencontrols.h"
#include "pen/penframe.h"
#include "pen/shapechooser.h"

#include <QButtonGroup>

namespace VcAction::Toolbar {

namespace {

constexpr QSize paletteSize(305, 85);
/// Between the colours and the close button, above the check box.
constexpr QPoint styleButtonsPlace(206, 9);

}

PenToolbar::PenToolbar(QWidget* parent)
    : ActionToolbar(parent, paletteSize)
{
    sizeComboBox = makeSizeBox(this, QPoint(40, 7));
    sizeGroupBox = static_cast<VcAction::Widget::VcGroupBox*>(sizeComboBox->parentWidget());
    colorComboBox = makeColorBox(this, QPoint(125, 7), this);
    colorComboBox->chooseCustomColor(frame()->penColor());
    transparencyCheckBox = makeTransparencyBox(this, QPoint(width() - 100, 45));
    fillSizeCB();
    chooseCustomSize(frame()->penWidth());
    setTransparency(frame()->penOpacity() < 1.0);
    connectControls();
}

VcAction::Frame::PenFrame* PenToolbar::frame() const
{
    return static_cast<VcAction::Frame::PenFrame*>(parent());
}

void PenToolbar::connectControls()
{
    connect(transparencyCheckBox, SIGNAL(clicked(bool)), this, SLOT(setTransparency(bool)));
    connect(colorComboBox, SIGNAL(colorChosen(QColor)), this, SLOT(updateColor(QColor)));
    connect(sizeComboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(updateSize(int)));
}

void PenToolbar::fillSizeCB()
{
    fillSizes(*sizeComboBox);
}

void PenToolbar::chooseCustomSize(int size)
{
    chooseSize(*sizeComboBox, size);
}

void PenToolbar::createShapeChooser()
{
    const ShapeChooser chooser = ShapeChooser::make(sizeComboBox, this, styleButtonsPlace);
    shapeComboBox = chooser.shapes;
    styleButtonGroup = chooser.styles;

    const int shape = shapeComboBox->findData(frame()->penStyle());
    if (shape != -1) {
        shapeComboBox->setCurrentIndex(shape);
        chooseStyle(ShapeChooser::shapeMode);
    }
    connect(styleButtonGroup, SIGNAL(idClicked(int)), this, SLOT(chooseStyle(int)));
    connect(shapeComboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(updateShape(int)));
}

void PenToolbar::fillShapeCB()
{
    fillShapes(*shapeComboBox);
}

void PenToolbar::incrementColor(int step)
{
    colorComboBox->increment(step);
}

void PenToolbar::updateColor(QColor color)
{
    frame()->setPen(color);
}

void PenToolbar::updateSize(int index)
{
    frame()->setPenSize(sizeComboBox->itemData(index).toInt());
}

void PenToolbar::updateShape(int index)
{
    frame()->setStyle(shapeComboBox->itemData(index).toInt());
}

void PenToolbar::chooseStyle(int style)
{
    const ShapeChooser chooser{sizeGroupBox, sizeComboBox, shapeComboBox, styleButtonGroup};
    frame()->setStyle(chooser.choose(style));
}

void PenToolbar::setTransparency(bool value)
{
    transparencyCheckBox->setCheckState(value ? Qt::Checked : Qt::Unchecked);
    frame()->setTransparency(value);
}

}
