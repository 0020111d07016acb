#include "os/x11/exactplace.h"

#include "os/screencover.h"
#include "os/x11/structurenotice.h"
#include "os/x11/x11window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

namespace osUtils::X11 {

ExactPlace::ExactPlace(QWindow& placed, const QRect& exactPlace)
    : QObject(&placed)
    , window(placed)
    , place(exactPlace)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    window.installEventFilter(this);
    setGeometry(window.winId(), place);
}

bool ExactPlace::eventFilter(QObject* watched, QEvent* event)
{
    // The toolkit sets the hints when it maps the window, with steps of one logical pixel, and xfwm4
    // (seen in 4.18) rounds the size down to them.
    if (event->type() == QEvent::Expose && !settled) {
        settled = true;
        allowAnySize(window.winId());
        setGeometry(window.winId(), place);
    }
    return QObject::eventFilter(watched, event);
}

bool ExactPlace::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    auto* event = structureNotice<xcb_configure_notify_event_t>(eventType, message, window.winId());
    if (!event)
        return false;
    const qreal ratio = window.devicePixelRatio();
    const QSize size = System::coveringSize({event->width, event->height}, ratio);
    event->width = static_cast<uint16_t>(qRound(size.width() * ratio));
    event->height = static_cast<uint16_t>(qRound(size.height() * ratio));
    return false;
}

}
