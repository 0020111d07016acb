#include "action/widget/vcgroupbox.h"

#include "action/widget/stylesheets.h"

namespace VcAction::Widget {

VcGroupBox::VcGroupBox(const QString& title, QWidget* parent)
    : QGroupBox(title, parent)
{
    setFlat(true);
    setStyleSheet(StyleSheets::groupBox());
}

VcGroupBox::VcGroupBox(QWidget* parent)
    : VcGroupBox(QString(), parent)
{
}

}
