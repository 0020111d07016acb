#include "examples/liveboard/boardtoolbar.h"

#include "action/toolbar/shutterhandle.h"
#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "examples/liveboard/boardframe.h"
#include "pen/pencontrols.h"

#include <QButtonGroup>

using namespace VcAction::Toolbar;

namespace LiveBoard {

BoardToolbar::BoardToolbar(BoardFrame& frame)
    : ActionToolbar(&frame, QSize(305, 85))
    , board(frame)
{
    createPenPage();
    createShapePage();
    shutterHandle = new ShutterHandle(this);
    enableShutter();
}

void BoardToolbar::createPenPage()
{
    QWidget* page = addTab(tr("Pen"));
    sizes = makeSizeBox(page, QPoint(0, 7));
    fillSizes(*sizes);
    auto* colors = makeColorBox(page, QPoint(85, 7), this);
    auto* transparent = makeTransparencyBox(page, QPoint(165, 45));

    connect(sizes, SIGNAL(currentIndexChanged(int)), this, SLOT(updateSize(int)));
    connect(colors, SIGNAL(colorChosen(QColor)), &board, SLOT(setPen(QColor)));
    connect(transparent, SIGNAL(clicked(bool)), &board, SLOT(setTransparency(bool)));
    // What the board begins with reaches it by the connections.
    chooseSize(*sizes, 12);
    colors->chooseCustomColor(Qt::yellow);
}

void BoardToolbar::createShapePage()
{
    QWidget* page = addTab(tr("Shape"));
    // In freehand the page offers the pen's sizes too: the same, whichever page they are chosen on.
    auto* sameSizes = makeSizeBox(page, QPoint(60, 7));
    fillSizes(*sameSizes);
    sameSizes->setCurrentIndex(sizes->currentIndex());
    chooser = ShapeChooser::make(sameSizes, page, QPoint(6, 34));

    connect(sizes, SIGNAL(currentIndexChanged(int)), sameSizes, SLOT(setCurrentIndex(int)));
    connect(sameSizes, SIGNAL(currentIndexChanged(int)), sizes, SLOT(setCurrentIndex(int)));
    connect(chooser.styles, SIGNAL(idClicked(int)), this, SLOT(chooseStyle(int)));
    connect(chooser.shapes, SIGNAL(currentIndexChanged(int)), this, SLOT(updateShape()));
}

void BoardToolbar::updateSize(int index)
{
    board.setPenSize(sizes->itemData(index).toInt());
}

void BoardToolbar::updateShape()
{
    chooseStyle(chooser.styles->checkedId());
}

void BoardToolbar::chooseStyle(int button)
{
    board.setStyle(chooser.choose(button));
}

}
