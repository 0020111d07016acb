#include "pen/pencontrols.h"

#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "action/widget/vcgroupbox.h"
#include "pen/penchoices.h"
#include "pen/pentoolbar.h"

namespace VcAction::Toolbar {

using namespace VcAction::Widget;

namespace {

VcGroupBox* makeGroupBox(const QString& title, QWidget* parent, QPoint place)
{
    auto* box = new VcGroupBox(title, parent);
    box->setFixedSize(80, 65);
    box->move(place);
    return box;
}

void placeInGroupBox(QWidget& box)
{
    box.setFixedSize(71, 51);
    box.move(5, 14);
}

}

VcComboBox* makeSizeBox(QWidget* parent, QPoint place)
{
    auto* box = new VcComboBox(makeGroupBox(PenToolbar::tr("Size"), parent, place));
    box->setAccessibleName(PenToolbar::tr("Size"));
    placeInGroupBox(*box);
    return box;
}

VcColorComboBox* makeColorBox(QWidget* parent, QPoint place, ActionToolbar* toolbar)
{
    VcGroupBox* groupBox = makeGroupBox(PenToolbar::tr("Color"), parent, place);
    groupBox->setAlignment(Qt::AlignLeft);
    auto* box = new VcColorComboBox(QColor(Qt::red), PenToolbar::tr("red"), groupBox, toolbar);
    box->setAccessibleName(PenToolbar::tr("Color"));
    placeInGroupBox(*box);
    addPresetColors(*box);
    return box;
}

VcCheckBox* makeTransparencyBox(QWidget* parent, QPoint place)
{
    auto* box = new VcCheckBox(parent);
    box->setText(PenToolbar::tr("Transparent"));
    box->move(place);
    return box;
}

}
