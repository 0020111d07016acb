#include "pen/penchoices.h"

#include "action/widget/boxicons.h"
#include "action/widget/vccolorcombobox.h"
#include "overlay/layerpixmap.h"
#include "pen/pentoolbar.h"
#include "pen/sizeicon.h"
#include "pen/stroke.h"

#include <QPainter>

namespace VcAction::Toolbar {

namespace {

constexpr QSize iconSize(sizeIconSide, sizeIconSide);

struct SizePreset {
    int size;
    // The disc's first and last column; 32 is drawn narrower to fit the icon.
    int first;
    int last;
};
constexpr SizePreset sizePresets[] = {
    {8, 12, 19}, {12, 10, 21}, {16, 8, 23}, {20, 6, 25}, {24, 4, 27}, {28, 2, 29}, {32, 1, 30},
};

/// Drawn larger with hard edges and then made smaller, which leaves the outline's straight parts as sharp
/// as they are without antialiasing and makes its curves smooth.
template <typename Draw> QIcon shapeIcon(qreal devicePixelRatio, Draw draw)
{
    constexpr int enlargement = 4;
    QPixmap large =
        Helpers::NQt::layerPixmap(iconSize, devicePixelRatio * enlargement, Qt::transparent);
    QPainter painter(&large);
    painter.setPen(Qt::black);
    painter.setBrush(QBrush(Qt::gray, Qt::SolidPattern));
    // To the middle of the pixels: a line between two of them would cover half of both.
    painter.translate(0.5, 0.5);
    draw(painter, QRect(QPoint(2, 6), QPoint(29, 25)));
    painter.end();

    QPixmap icon =
        large.scaled(large.size() / enlargement, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    icon.setDevicePixelRatio(devicePixelRatio);
    return icon;
}

}

void fillSizes(QComboBox& box)
{
    box.clear();
    VcAction::Widget::showIcons(box, iconSize);
    for (const SizePreset& preset : sizePresets) {
        box.addItem(discIcon(preset.first, preset.last, box.devicePixelRatioF()),
                    QString::number(preset.size), preset.size);
    }
}

void chooseSize(QComboBox& box, int size)
{
    const int known = box.findData(size);
    if (known != -1) {
        box.setCurrentIndex(known);
        return;
    }
    box.addItem(squareIcon(customSizeSquare(size), box.devicePixelRatioF()), QString::number(size),
                size);
    box.setCurrentIndex(box.count() - 1);
}

void fillShapes(QComboBox& box)
{
    const qreal ratio = box.devicePixelRatioF();
    box.clear();
    VcAction::Widget::showIcons(box, iconSize);
    box.addItem(
        shapeIcon(ratio, [](QPainter& painter, QRect shape) { painter.drawEllipse(shape); }),
        PenToolbar::tr("Ellipse"), Frame::Ellipse);
    box.addItem(shapeIcon(ratio, [](QPainter& painter, QRect shape) { painter.drawRect(shape); }),
                PenToolbar::tr("Rectangle"), Frame::Rectangle);
    // The name of the third is the same in every language.
    box.addItem(shapeIcon(ratio,
                          [](QPainter& painter, QRect shape) {
                              painter.drawRoundedRect(shape, 50, 50, Qt::RelativeSize);
                          }),
                QStringLiteral("Round Rect"), Frame::RoundRect);
}

void addPresetColors(VcAction::Widget::VcColorComboBox& box)
{
    box.addColor(QColor(255, 80, 0), PenToolbar::tr("Orange"));
    box.addColor(QColor(255, 255, 0), PenToolbar::tr("Yellow"));
    box.addColor(QColor(0, 255, 0), PenToolbar::tr("Green"));
    box.addColor(QColor(0, 255, 255), PenToolbar::tr("Aqua"));
    box.addColor(QColor(0, 0, 255), PenToolbar::tr("Blue"));
    box.addColor(QColor(255, 0, 255), PenToolbar::tr("Purple"));
    box.addColor(QColor(0, 0, 0), PenToolbar::tr("Black"));
}

}
