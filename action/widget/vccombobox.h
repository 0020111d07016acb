#pragma once

#include <QComboBox>

namespace VcAction::Widget {

/// A combo box drawn from the palette's images, with a list in the house colour. One too narrow for
/// its entries' texts shows their icons alone, in the middle of its field.
class VcComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit VcComboBox(QWidget* parent);

    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void dressList();
};

/// Has a box show its entries' icons in this size, in logical pixels. A box that is told so itself
/// makes its list at once, which takes longer than all else in it; where a sheet above it gives the
/// size already, as a palette's does, the list is not made before it opens.
void showIcons(QComboBox& box, QSize size);

}
