#pragma once

#include <QCheckBox>

namespace VcAction::Widget {

/// A check box drawn from the palette's images.
class VcCheckBox : public QCheckBox {
    Q_OBJECT

public:
    explicit VcCheckBox(QWidget* parent);
};

}
