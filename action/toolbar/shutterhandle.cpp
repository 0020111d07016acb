#include "action/toolbar/shutterhandle.h"

#include "action/toolbar/actiontoolbar.h"
#include "action/toolbar/palettegeometry.h"

#include <QLineF>
#include <QPainter>

namespace VcAction::Toolbar {

namespace {

constexpr int ridges = 6;
constexpr int firstRidge = 8;
constexpr int ridgeDistance = 5;
constexpr int ridgeWidth = 2;
// These keep the ridges within the strip's rounded corners.
constexpr int topMargin = 8;
constexpr int bottomMargin = 5;
constexpr QColor ridgeColor(0xff, 0xe6, 0xda);
constexpr QColor shadowColor(0xb8, 0x3a, 0x00);

void paintRidges(QPainter& painter, const QRect& area, const QColor& color)
{
    painter.setPen(QPen(color, ridgeWidth, Qt::SolidLine, Qt::RoundCap));
    for (int ridge = 0; ridge < ridges; ++ridge) {
        const int x = area.left() + firstRidge + ridge * ridgeDistance;
        painter.drawLine(QLineF(x, area.top() + topMargin, x, area.bottom() - bottomMargin));
    }
}

}

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

HandleGrip::HandleGrip(ActionToolbar* toolbar)
    : QWidget(toolbar)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void HandleGrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintRidges(painter, rect().translated(1, 1), shadowColor);
    paintRidges(painter, rect(), ridgeColor);
}

}
