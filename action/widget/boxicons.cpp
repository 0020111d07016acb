#include "action/widget/boxicons.h"

#include <QComboBox>

namespace VcAction::Widget {

void showIcons(QComboBox& box, QSize size)
{
    box.ensurePolished(); // the sheets are in force from there on
    if (box.iconSize() != size)
        box.setIconSize(size);
}

}
