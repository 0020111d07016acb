#include "action/toolbar/shutterhandle.h"

#include "action/toolbar/actiontoolbar.h"
#include "action/toolbar/palettegeometry.h"

namespace VcAction::Toolbar {

ShutterHandle::ShutterHandle(ActionToolbar* toolbar)
    : QToolButton(toolbar)
{
    setGeometry(shutterHandlePlace(toolbar->size()));
    setArrowType(Qt::LeftArrow);
    // The keyboard stays with the frame, for Escape.
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Shutter"));
    connect(this, SIGNAL(clicked()), toolbar, SLOT(shutterOpenClose()));
    connect(this, SIGNAL(clicked()), this, SLOT(turnArrow()));
}

void ShutterHandle::turnArrow()
{
    setArrowType(arrowType() == Qt::LeftArrow ? Qt::RightArrow : Qt::LeftArrow);
}

}
