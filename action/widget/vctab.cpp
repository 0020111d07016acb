#include "action/widget/vctab.h"

namespace VcAction::Widget {

VcTab::VcTab(QWidget* parent)
    : QWidget(parent)
{
}

void VcTab::paintEvent(QPaintEvent* /*event*/) { }

}
