#pragma once

#include "action/frame/actionframe.h"
#include "pen/inklayer.h"

#include <QCursor>

namespace LiveBoard {

/// Ink over the live desktop. How its size, colour and style are chosen is the palette's.
class BoardFrame : public VcAction::Frame::ActionFrame {
    Q_OBJECT

public:
    BoardFrame();

    void draw(QPaintDevice* device) override;
    void updateCursor() override;

public slots:
    void setPen(QColor color);
    void setPenSize(int size) { ink.setWidth(size); }
    void setStyle(int style) { ink.setStyle(style); }
    void setTransparency(bool transparent) { ink.setTransparency(transparent); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    VcAction::Frame::InkLayer ink;
    QCursor penCursor;
};

}
