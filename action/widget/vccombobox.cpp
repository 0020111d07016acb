#include "action/widget/vccombobox.h"

#include "action/widget/densesheet.h"
#include "action/widget/stylesheets.h"

namespace VcAction::Widget {

VcComboBox::VcComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setStyleSheet(StyleSheets::forDensity(StyleSheets::comboBox(), devicePixelRatioF()));
}

}
