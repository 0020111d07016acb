#pragma once

#include <QGroupBox>

namespace VcAction::Widget {

/// A flat group box with a title in the house colour.
class VcGroupBox : public QGroupBox {
    Q_OBJECT

public:
    VcGroupBox(const QString& title, QWidget* parent);
    explicit VcGroupBox(QWidget* parent);
};

}
