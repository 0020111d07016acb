#include "action/widget/roundedlist.h"

#include <QEvent>
#include <QWidget>
#include <QtMath>

namespace VcAction::Widget {

namespace {

// As in the sheet of the box.
constexpr int borderRadius = 5;
constexpr QColor borderColor(0xff, 0x50, 0x00);

/// How far the arc of a corner is from the rectangle's side, in a row counted from the corner.
int arcInset(int row, int radius)
{
    const qreal height = radius - row - 0.5;
    return qRound(radius - qSqrt(radius * radius - height * height));
}

}

QRegion roundedRegion(QSize size, int radius)
{
    QRegion region(0, radius, size.width(), size.height() - 2 * radius);
    for (int row = 0; row < radius; ++row) {
        const int inset = arcInset(row, radius);
        const int width = size.width() - 2 * inset;
        region += QRect(inset, row, width, 1);
        region += QRect(inset, size.height() - 1 - row, width, 1);
    }
    return region;
}

RoundedList::RoundedList(QWidget* popup)
    : QObject(popup)
{
    QPalette colors = popup->palette();
    colors.setColor(QPalette::Window, borderColor);
    popup->setPalette(colors);
    popup->installEventFilter(this);
}

bool RoundedList::eventFilter(QObject* popup, QEvent* event)
{
    // Not on resizing: the list's own handler takes a mask away after the filter has run.
    if (event->type() == QEvent::Show) {
        auto* window = static_cast<QWidget*>(popup);
        window->setMask(roundedRegion(window->size(), borderRadius));
    }
    return false;
}

}
