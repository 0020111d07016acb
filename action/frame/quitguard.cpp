#include "action/frame/quitguard.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

namespace VcAction::Frame {

QuitGuard::QuitGuard(QCoreApplication& application)
    : QObject(&application)
{
    application.installEventFilter(this);
    connect(&application, SIGNAL(aboutToQuit()), this, SLOT(dropQuits()));
}

void QuitGuard::guard(QCoreApplication& application)
{
    if (!application.findChild<QuitGuard*>(QString(), Qt::FindDirectChildrenOnly))
        new QuitGuard(application);
}

void QuitGuard::dropQuits()
{
    quitting = true;
    // Should an event loop run again.
    QMetaObject::invokeMethod(this, "letQuitsThrough", Qt::QueuedConnection);
}

void QuitGuard::letQuitsThrough()
{
    quitting = false;
}

bool QuitGuard::eventFilter(QObject* application, QEvent* event)
{
    if (event->type() != QEvent::Quit)
        return false;
    if (quitting)
        return true;
    const QScopedValueRollback whileQuitting(quitting, true);
    // Delivered here rather than passed on, so that the end of its handling is known.
    application->event(event);
    return true;
}

}
