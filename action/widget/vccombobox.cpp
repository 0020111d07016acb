#include "action/widget/vccombobox.h"

#include "action/widget/entrydelegate.h"
#include "action/widget/roundedlist.h"
#include "action/widget/stylesheets.h"

#include <QAbstractItemView>
#include <QStylePainter>

namespace VcAction::Widget {

namespace {

/// Where the box's image leaves room for an icon: within its outline and beside the arrow's button.
QRect iconField(QSize box)
{
    constexpr int outline = 1;
    constexpr int button = 19;
    return {outline, outline, box.width() - outline - button, box.height() - 2 * outline};
}

/// In the middle of an area, on whole device pixels, since the icon would be blurred between them.
QRectF centred(QSize icon, const QRect& area, qreal devicePixelRatio)
{
    const QPointF free(area.width() - icon.width(), area.height() - icon.height());
    const QPointF corner = (QPointF(area.topLeft()) + free / 2) * devicePixelRatio;
    return {QPointF(qRound(corner.x()), qRound(corner.y())) / devicePixelRatio, QSizeF(icon)};
}

bool hasRoomForText(const QStyleOptionComboBox& option, const QComboBox& box)
{
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &box);
    return field.width() - option.iconSize.width()
        >= option.fontMetrics.horizontalAdvance(option.currentText);
}

}

VcComboBox::VcComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setStyleSheet(StyleSheets::forDensity(StyleSheets::comboBox(), devicePixelRatioF()));
}

void VcComboBox::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    if (option.currentIcon.isNull() || hasRoomForText(option, *this)) {
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
        return;
    }
    const QRectF place = centred(option.iconSize, iconField(size()), devicePixelRatioF());
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    const QPixmap icon = option.currentIcon.pixmap(option.iconSize, devicePixelRatioF(), mode);
    painter.drawPixmap(place.topLeft(), icon);
    if (isColor(currentData()))
        paintSwatchEdge(painter, place);
}

void VcComboBox::showPopup()
{
    QWidget* list = view()->window();
    if (!list->findChild<RoundedList*>(QString(), Qt::FindDirectChildrenOnly))
        dressList();
    // Not every style makes the list wider than the box for its entries.
    view()->ensurePolished();
    const int entryWidth = view()->sizeHintForColumn(modelColumn()) + 2 * view()->frameWidth();
    view()->setMinimumWidth(qMax(view()->minimumWidth(), entryWidth));
    QComboBox::showPopup();
}

void VcComboBox::dressList()
{
    setItemDelegate(new EntryDelegate(this));
    view()->setAccessibleName(accessibleName());
    new RoundedList(view()->window());
}

void showIcons(QComboBox& box, QSize size)
{
    box.ensurePolished(); // the sheets are in force from there on
    if (box.iconSize() != size)
        box.setIconSize(size);
}

}
