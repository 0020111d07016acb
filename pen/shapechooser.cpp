#include "pen/shapechooser.h"

#include "action/widget/vccombobox.h"
#include "overlay/sharpimage.h"
#include "pen/pencontrols.h"
#include "pen/pentoolbar.h"
#include "pen/stroke.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QToolButton>

namespace VcAction::Toolbar {

namespace {

constexpr QSize buttonSize(22, 24);
constexpr QSize buttonIconSize(16, 16);

void showBox(QComboBox& box, bool wanted)
{
    box.setEnabled(wanted);
    box.setVisible(wanted);
}

QToolButton* makeStyleButton(QWidget* parent, QPoint place, const char* image, const QString& name)
{
    auto* button = new QToolButton(parent);
    button->setFixedSize(buttonSize);
    button->move(place);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setIconSize(buttonIconSize);
    button->setIcon(Helpers::NQt::sharpImage(":/resource/action/pen/Img/" + QLatin1String(image),
                                             parent->devicePixelRatioF()));
    button->setToolTip(name);
    button->setAccessibleName(name);
    return button;
}

}

ShapeChooser ShapeChooser::make(QComboBox* sizes, QWidget* buttonParent, QPoint buttonPlace)
{
    auto* groupBox = static_cast<QGroupBox*>(sizes->parentWidget());
    ShapeChooser chooser{groupBox, sizes, new VcAction::Widget::VcComboBox(groupBox),
                         new QButtonGroup(buttonParent)};
    chooser.shapes->setFixedSize(sizes->size());
    chooser.shapes->move(sizes->pos());
    chooser.shapes->setAccessibleName(PenToolbar::tr("Shape"));
    fillShapes(*chooser.shapes);

    const QPoint next(buttonSize.width(), 0);
    const QString freehand = PenToolbar::tr("Freehand");
    chooser.styles->addButton(makeStyleButton(buttonParent, buttonPlace, "freehand.png", freehand),
                              Frame::Freehand);
    const QString shape = PenToolbar::tr("Shape");
    chooser.styles->addButton(makeStyleButton(buttonParent, buttonPlace + next, "shape.png", shape),
                              shapeMode);
    chooser.choose(Frame::Freehand);
    return chooser;
}

int ShapeChooser::choose(int style) const
{
    if (QAbstractButton* button = styles->button(style))
        button->setChecked(true);
    const bool shaped = style == shapeMode;
    showBox(*shapes, shaped);
    showBox(*sizes, !shaped);
    groupBox->setTitle(shaped ? PenToolbar::tr("Shape") : PenToolbar::tr("Size"));
    return shaped ? shapes->currentData().toInt() : style;
}

}
