#include "action/widget/vccolorcombobox.h"

#include "action/toolbar/actiontoolbar.h"
#include "action/widget/wheelsteps.h"
#include "overlay/layerpixmap.h"
#include "windowsystem/nativewindow.h"

#include <QApplication>
#include <QColorDialog>
#include <QTimer>
#include <QWheelEvent>

#include <utility>

namespace VcAction::Widget {

namespace {

constexpr QSize swatchSize(35, 35);
constexpr auto pickImage = ":/resource/action/common/Img/cbPick.png";
// Xfwm4 hands the keyboard on while it still takes the dialog down, whatever it is asked meanwhile;
// 100 ms later it never did.
constexpr int dialogGoneMs = 100;
constexpr auto listSheet = "VcAction--Widget--VcColorComboBox QListView{ min-width: 8em;}";

}

VcColorComboBox::VcColorComboBox(QColor color, QString name, QWidget* parent,
                                 VcAction::Toolbar::ActionToolbar* palette)
    : VcComboBox(parent)
    , toolbar(palette)
{
    setStyleSheet(styleSheet() + QLatin1String(listSheet));
    addCustomItem();
    addColor(color, std::move(name));
    setCurrentIndex(0);
    connect(this, SIGNAL(currentIndexChanged(int)), this, SLOT(updateColor(int)));
}

void VcColorComboBox::addCustomItem()
{
    clear();
    showIcons(*this, swatchSize);
    addItem(QIcon(QLatin1String(pickImage)), tr("Pick Color"));
}

void VcColorComboBox::addColor(QColor color, QString name)
{
    const int index = hasCustomItem ? count() - 2 : count() - 1;
    insertItem(index, swatch(color), name, color);
}

void VcColorComboBox::updateColor(int index)
{
    if (index == -1)
        return;
    if (count() > 1 && index == count() - 1) {
        chooseCustomColor();
        return;
    }
    emit colorChosen(itemData(index).value<QColor>());
    lastIndex = index;
}

void VcColorComboBox::chooseCustomColor()
{
    if (toolbar)
        toolbar->setFadingEnabled(false);
    if (lastIndex != count() - 1)
        openColorDialog();
    if (toolbar) {
        toolbar->setFadingEnabled(true);
        // The pointer may have left the palette meanwhile, and tells no more of it.
        toolbar->fadeOut();
    }
}

void VcColorComboBox::openColorDialog()
{
    const QColor color =
        QColorDialog::getColor(itemData(lastIndex).value<QColor>(), this,
                               tr("Choose a Custom Color"), QColorDialog::DontUseNativeDialog);
    if (color.isValid())
        chooseCustomColor(color);
    else
        setCurrentIndex(lastIndex);

    // Not every window manager hands the keyboard back to the frame when its dialog is gone.
    Windowing::NativeWindow::of(*this).takeKeyboard();
    QTimer::singleShot(dialogGoneMs, this, [this] {
        // Not from what the user has opened meanwhile.
        if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget())
            Windowing::NativeWindow::of(*this).takeKeyboard();
    });
}

void VcColorComboBox::chooseCustomColor(QColor color)
{
    for (int index = 0; index < count() - 1; ++index) {
        if (itemData(index).value<QColor>() == color) {
            setCurrentIndex(index);
            lastIndex = index;
            return;
        }
    }
    setCustomEntry(color);
}

void VcColorComboBox::setCustomEntry(const QColor& color)
{
    lastIndex = count() - 2;
    if (hasCustomItem) {
        setItemIcon(lastIndex, swatch(color));
        setItemData(lastIndex, color);
        setCurrentIndex(lastIndex);
        return;
    }
    // The last preset first, which tells its colour, then the custom one.
    setCurrentIndex(lastIndex);
    insertItem(count() - 1, swatch(color), tr("Custom"), color);
    hasCustomItem = true;
    setCurrentIndex(count() - 2);
}

void VcColorComboBox::increment(int step)
{
    const int entries = count();
    const int pickColor = entries - 1;
    // Whole rounds backwards are dropped, since the remainder of a negative number is no index.
    int index = step >= 1 ? currentIndex() + step : currentIndex() + entries + step % entries;
    if (index % entries >= pickColor)
        index += step >= 1 ? 1 : -1;
    setCurrentIndex(index % entries);
}

void VcColorComboBox::wheelEvent(QWheelEvent* event)
{
    const WheelTurn turn = wheelTurn(*event);
    const WheelSteps wheel = wheelSteps(wheelRemainder, turn.delta);
    wheelRemainder = wheel.remainder;
    if (!turn.horizontal)
        increment(-wheel.steps);
    event->accept();
}

QIcon VcColorComboBox::swatch(const QColor& color) const
{
    return Helpers::NQt::layerPixmap(swatchSize, devicePixelRatioF(), color);
}

}
