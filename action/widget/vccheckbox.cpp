#include "action/widget/vccheckbox.h"

#include "action/widget/stylesheets.h"

namespace VcAction::Widget {

VcCheckBox::VcCheckBox(QWidget* parent)
    : QCheckBox(parent)
{
    setStyleSheet(StyleSheets::checkBox());
}

}
