#pragma once

#include "action/toolbar/actiontoolbar.h"
#include "pen/shapechooser.h"

namespace LiveBoard {

class BoardFrame;

/// The board's palette: a page for the pen, a page for the shapes, and a shutter that lets the
/// mouse through to the desktop.
class BoardToolbar : public VcAction::Toolbar::ActionToolbar {
    Q_OBJECT

public:
    explicit BoardToolbar(BoardFrame& frame);

private slots:
    void updateSize(int index);
    void updateShape();
    void chooseStyle(int button);

private:
    void createPenPage();
    void createShapePage();

    BoardFrame& board;
    QComboBox* sizes = nullptr;
    VcAction::Toolbar::ShapeChooser chooser{};
};

}
