#include "os/presentationmode.h"

#include "os/windowpresenter.h"

#include <QGuiApplication>

namespace osUtils::System {

namespace {

constexpr int allHiddenMode = 3;

}

void setSystemUIMode(int mode, int /*options*/)
{
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (!application)
        return;
    // One for the process: a child of the application object, which sees the events of all windows.
    auto* presenter =
        application->findChild<WindowPresenter*>(QString(), Qt::FindDirectChildrenOnly);
    if (!presenter)
        presenter = new WindowPresenter(application);
    presenter->setCovering(mode == allHiddenMode);
}

void setShowDockIcon(bool /*show*/) { }

bool vistaOrlater()
{
    return false;
}

}
