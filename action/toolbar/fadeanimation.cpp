#include "action/toolbar/fadeanimation.h"

#include "action/toolbar/actiontoolbar.h"

#include <QAbstractItemView>
#include <QApplication>

namespace VcAction::Toolbar {

FadeAnimation::FadeAnimation(ActionToolbar* toolbar)
    : QPropertyAnimation(toolbar, "windowOpacity")
{
}

void FadeAnimation::updateCurrentValue(const QVariant& value)
{
    auto* toolbar = qobject_cast<ActionToolbar*>(targetObject());
    if (!toolbar || state() == QAbstractAnimation::Stopped)
        return;
    // Interpolation from 1.0 to 0.3 ends a hair above 0.3, which would count as not faded yet.
    const bool atEnd = currentTime() == duration();
    toolbar->setWindowOpacity((atEnd ? endValue() : value).toReal());
}

ListWatch::ListWatch(ActionToolbar* owner)
    : QObject(owner)
    , toolbar(owner)
{
    connect(qApp, SIGNAL(focusChanged(QWidget*, QWidget*)), this, SLOT(focusMoved(QWidget*)));
}

void ListWatch::focusMoved(QWidget* old)
{
    // What the choice brings up, such as a dialog, comes first.
    if (qobject_cast<QAbstractItemView*>(old) && toolbar->isAncestorOf(old))
        QMetaObject::invokeMethod(toolbar, "fadeOut", Qt::QueuedConnection);
}

}
