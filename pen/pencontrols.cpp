#include "pen/pencontrols.h"

#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "action/widget/vcgroupbox.h"
#include "overlay/layerpixmap.h"
#include "pen/pentoolbar.h"
#include "pen/stroke.h"

#include <QPainter>

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

void addPresetColors(VcColorComboBox& box)
{
    box.addColor(QColor(255, 80, 0), PenToolbar::tr("Orange"));
    box.addColor(QColor(255, 255, 0), PenToolbar::tr("Yellow"));
    box.addColor(QColor(0, 255, 0), PenToolbar::tr("Green"));
    box.addColor(QColor(0, 255, 255), PenToolbar::tr("Aqua"));
    box.addColor(QColor(0, 0, 255), PenToolbar::tr("Blue"));
    box.addColor(QColor(255, 0, 255), PenToolbar::tr("Purple"));
    box.addColor(QColor(0, 0, 0), PenToolbar::tr("Black"));
}

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

/// Drawn larger with hard edges and then made smaller, which leaves the outline's straight parts as
/// sharp as they are without antialiasing and makes its curves smooth.
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

constexpr int largestSquare = 30;

QPixmap emptyIcon(qreal devicePixelRatio)
{
    return Helpers::NQt::layerPixmap({sizeIconSide, sizeIconSide}, devicePixelRatio,
                                     Qt::transparent);
}

void setUpPainter(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
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

void fillSizes(QComboBox& box)
{
    box.clear();
    showIcons(box, iconSize);
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
    showIcons(box, iconSize);
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

QRect customSizeSquare(int penSize)
{
    // Larger ones are all the same square, which also keeps the arithmetic within bounds.
    const int size = qBound(-largestSquare, penSize, sizeIconSide);
    const int margin = sizeIconSide - size < 2 ? 1 : (sizeIconSide - size) / 2;
    const int last = margin + (size <= largestSquare ? size - 1 : largestSquare - 1);
    return {QPoint(margin, margin), QPoint(last, last)};
}

QIcon discIcon(int first, int last, qreal devicePixelRatio)
{
    QPixmap icon = emptyIcon(devicePixelRatio);
    QPainter painter(&icon);
    setUpPainter(painter);
    painter.drawEllipse(QRect(QPoint(first, first), QPoint(last, last)));
    painter.end();
    return icon;
}

QIcon squareIcon(const QRect& square, qreal devicePixelRatio)
{
    QPixmap icon = emptyIcon(devicePixelRatio);
    QPainter painter(&icon);
    setUpPainter(painter);
    painter.drawRects(&square, 1);
    painter.end();
    return icon;
}

}
