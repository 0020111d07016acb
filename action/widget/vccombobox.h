#pragma once

#include <QComboBox>

namespace VcAction::Widget {

/// A combo box drawn from the palette's images, with a list in the house colour. One too narrow for its
/// entries' texts shows their icons alone, in the middle of its field.
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

}
