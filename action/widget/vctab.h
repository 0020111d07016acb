#pragma once

#include <QWidget>

namespace VcAction::Widget {

/// A tab page of a palette. Paints nothing, so that the palette's own background shows.
class VcTab : public QWidget {
    Q_OBJECT

public:
    explicit VcTab(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
