#include "action/toolbar/focusring.h"

#include "action/toolbar/actiontoolbar.h"

#include <QApplication>
#include <QCheckBox>
#include <QPainter>
#include <QStyle>
#include <QTabBar>

namespace VcAction::Toolbar {

namespace {

constexpr int gap = 1;
constexpr int lineWidth = 2;
constexpr int radius = 6;
constexpr QColor lineColor(0xb2, 0x38, 0x00);

/// The part of a control that shows: a check box is painted no larger than its label needs.
QRect shownPart(const QWidget& control)
{
    if (const auto* tabs = qobject_cast<const QTabBar*>(&control))
        return tabs->tabRect(tabs->currentIndex());
    if (qobject_cast<const QCheckBox*>(&control)) {
        return QStyle::alignedRect(control.layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                                   control.sizeHint().boundedTo(control.size()), control.rect());
    }
    return control.rect();
}

}

FocusRing::FocusRing(ActionToolbar* toolbar)
    : QWidget(toolbar)
{
    hide();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // A normalised signature has no blank after its comma.
    // clang-format off
    connect(qApp, SIGNAL(focusChanged(QWidget*,QWidget*)), this, SLOT(moveTo(QWidget*,QWidget*)));
    // clang-format on
}

void FocusRing::moveTo(QWidget* previous, QWidget* control)
{
    if (qobject_cast<QTabBar*>(previous))
        previous->disconnect(this);
    // Neither the lists nor the colour dialog, which are windows of their own.
    const bool isOnPalette = control != parentWidget() && parentWidget()->isAncestorOf(control);
    focused = isOnPalette ? control : nullptr;
    if (qobject_cast<QTabBar*>(focused))
        connect(focused, SIGNAL(currentChanged(int)), this, SLOT(surroundFocused()));
    surroundFocused();
}

void FocusRing::surroundFocused()
{
    setVisible(!focused.isNull());
    if (!focused)
        return;
    constexpr int margin = gap + lineWidth;
    const QRect part = shownPart(*focused);
    const QRect place(focused->mapTo(parentWidget(), part.topLeft()), part.size());
    setGeometry(place.adjusted(-margin, -margin, margin, margin));
    raise();
}

void FocusRing::paintEvent(QPaintEvent* /*event*/)
{
    constexpr qreal half = lineWidth / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(lineColor, lineWidth));
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius, radius);
}

}
