#include "action/toolbar/listwatch.h"

#include "action/toolbar/actiontoolbar.h"

#include <QAbstractItemView>
#include <QApplication>

namespace VcAction::Toolbar {

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
