#include "pen/pentoolbar.h"

#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "action/widget/vccombobox.h"
#include "action/widget/vcgroupbox.h"
#include "overlay/layerpixmap.h"
#include "pen/penframe.h"
#include "pen/sizeicon.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QPainter>

namespace VcAction::Toolbar {

namespace {

constexpr QSize paletteSize(305, 85);
constexpr QSize groupBoxSize(80, 65);
constexpr QSize comboBoxSize(71, 51);
constexpr QPoint comboBoxPlace(5, 14);
constexpr QSize sizeIconSize(sizeIconSide, sizeIconSide);
constexpr int shapeMode = 1;

struct SizePreset {
    int size;
    // The disc's first and last column; 32 is drawn narrower to fit the icon.
    int first;
    int last;
};
constexpr SizePreset sizePresets[] = {
    {8, 12, 19}, {12, 10, 21}, {16, 8, 23}, {20, 6, 25}, {24, 4, 27}, {28, 2, 29}, {32, 1, 30},
};

}

PenToolbar::PenToolbar(QWidget* parent)
    : ActionToolbar(parent, paletteSize)
{
    createSizeBox();
    createColorBox();
    createTransparencyBox();
    fillSizeCB();
    chooseCustomSize(frame()->penWidth());
    setTransparency(frame()->penOpacity() < 1.0);
    connectControls();
}

VcAction::Frame::PenFrame* PenToolbar::frame() const
{
    return static_cast<VcAction::Frame::PenFrame*>(parent());
}

void PenToolbar::createSizeBox()
{
    sizeGroupBox = new VcAction::Widget::VcGroupBox(tr("Size"), this);
    sizeGroupBox->setFixedSize(groupBoxSize);
    sizeGroupBox->move(40, 7);
    sizeComboBox = new VcAction::Widget::VcComboBox(sizeGroupBox);
    sizeComboBox->setFixedSize(comboBoxSize);
    sizeComboBox->move(comboBoxPlace);
}

void PenToolbar::createColorBox()
{
    auto* colorGroupBox = new VcAction::Widget::VcGroupBox(tr("Color"), this);
    colorGroupBox->setAlignment(Qt::AlignLeft);
    colorGroupBox->setFixedSize(groupBoxSize);
    colorGroupBox->move(125, 7);
    colorComboBox =
        new VcAction::Widget::VcColorComboBox(QColor(Qt::red), tr("red"), colorGroupBox, this);
    colorComboBox->setFixedSize(comboBoxSize);
    colorComboBox->move(comboBoxPlace);

    colorComboBox->addColor(QColor(255, 80, 0), tr("Orange"));
    colorComboBox->addColor(QColor(255, 255, 0), tr("Yellow"));
    colorComboBox->addColor(QColor(0, 255, 0), tr("Green"));
    colorComboBox->addColor(QColor(0, 255, 255), tr("Aqua"));
    colorComboBox->addColor(QColor(0, 0, 255), tr("Blue"));
    colorComboBox->addColor(QColor(255, 0, 255), tr("Purple"));
    colorComboBox->addColor(QColor(0, 0, 0), tr("Black"));
    colorComboBox->chooseCustomColor(frame()->penColor());
}

void PenToolbar::createTransparencyBox()
{
    transparencyCheckBox = new VcAction::Widget::VcCheckBox(this);
    transparencyCheckBox->setText(tr("Transparent"));
    transparencyCheckBox->move(width() - 100, 45);
}

void PenToolbar::connectControls()
{
    connect(transparencyCheckBox, SIGNAL(clicked(bool)), this, SLOT(setTransparency(bool)));
    connect(colorComboBox, SIGNAL(colorChosen(QColor)), this, SLOT(updateColor(QColor)));
    connect(sizeComboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(updateSize(int)));
}

void PenToolbar::fillSizeCB()
{
    sizeComboBox->clear();
    sizeComboBox->setIconSize(sizeIconSize);
    for (const SizePreset& preset : sizePresets) {
        sizeComboBox->addItem(discIcon(preset.first, preset.last, devicePixelRatioF()),
                              QString::number(preset.size), preset.size);
    }
}

void PenToolbar::chooseCustomSize(int size)
{
    const int known = sizeComboBox->findData(size);
    if (known != -1) {
        sizeComboBox->setCurrentIndex(known);
        return;
    }
    sizeComboBox->addItem(squareIcon(customSizeSquare(size), devicePixelRatioF()),
                          QString::number(size), size);
    sizeComboBox->setCurrentIndex(sizeComboBox->count() - 1);
}

void PenToolbar::fillShapeCB()
{
    shapeComboBox->clear();
    shapeComboBox->setIconSize(sizeIconSize);
    constexpr QRect shape(QPoint(2, 6), QPoint(29, 25));
    QPixmap icon = Helpers::NQt::layerPixmap(sizeIconSize, devicePixelRatioF(), Qt::transparent);
    const auto addShape = [&](const QString& text, int style, auto drawShape) {
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        painter.setPen(Qt::black);
        painter.setBrush(QBrush(Qt::gray, Qt::SolidPattern));
        drawShape(painter);
        painter.end();
        shapeComboBox->addItem(icon, text, style);
    };
    addShape(tr("Ellipse"), 1, [&](QPainter& painter) { painter.drawEllipse(shape); });
    addShape(tr("Rectangle"), 2, [&](QPainter& painter) { painter.drawRect(shape); });
    // The name of the third is the same in every language.
    addShape(QStringLiteral("Round Rect"), 3,
             [&](QPainter& painter) { painter.drawRoundedRect(shape, 50, 50, Qt::RelativeSize); });
}

void PenToolbar::incrementColor(int step)
{
    colorComboBox->increment(step);
}

void PenToolbar::updateColor(QColor color)
{
    frame()->setPen(color);
}

void PenToolbar::updateSize(int index)
{
    frame()->setPenSize(sizeComboBox->itemData(index).toInt());
}

void PenToolbar::updateShape(int index)
{
    frame()->setStyle(shapeComboBox->itemData(index).toInt());
}

void PenToolbar::chooseStyle(int style)
{
    styleButtonGroup->button(style)->setChecked(true);
    const bool shapes = style == shapeMode;
    shapeComboBox->setEnabled(shapes);
    shapeComboBox->setVisible(shapes);
    sizeComboBox->setEnabled(!shapes);
    sizeComboBox->setVisible(!shapes);
    sizeGroupBox->setTitle(shapes ? tr("Shape") : tr("Size"));
    if (shapes)
        updateShape(shapeComboBox->currentIndex());
    else
        frame()->setStyle(style);
}

void PenToolbar::setTransparency(bool value)
{
    transparencyCheckBox->setCheckState(value ? Qt::Checked : Qt::Unchecked);
    frame()->setTransparency(value);
}

}
