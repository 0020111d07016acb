#pragma once

#include <QComboBox>

namespace VcAction::Widget {

/// A combo box drawn from the palette's images, with a list in the house colour.
class VcComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit VcComboBox(QWidget* parent);
};

}
