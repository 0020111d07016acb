#include "os/windowlayer.h"

#include <QByteArray>

namespace osUtils::System {

WindowLayer coveringLayer(QByteArrayView windowManager, bool coversScreen)
{
    // Xfwm4 (seen in 4.18) takes a full-screen window out of the above layer, whatever the order of
    // the requests, and always-on-top windows then show over it. Its docks stay above all.
    if (windowManager.toByteArray().toLower().contains("xfwm"))
        return {WindowLayer::Type::Dock, false};

    // Elsewhere the full-screen state is what puts a window above the panels and keeps the window
    // manager from fitting it into the work area. The notification type has no opening animation,
    // which would show the picture shifted, and leaves the window's own dialogs above it.
    return {WindowLayer::Type::Notification, coversScreen};
}

}
