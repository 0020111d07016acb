#include "os/presentationmode.h"

#include "os/windowpresenter.h"

#include <QGuiApplication>

namespace osUtils::System {

namespace {

constexpr int allHiddenMode = 3;

}

void setSystemUIMode(int mode, int /*options*/)
{
    // One for the process: a child of the application object, which sees the events of all windows.
    auto* presenter = qGuiApp->findChild<WindowPresenter*>(QString(), Qt::FindDirectChildrenOnly);
    if (!presenter)
        presenter = new WindowPresenter(qGuiApp);
    presenter->setCovering(mode == allHiddenMode);
}

void setShowDockIcon(bool /*show*/) { }

bool vistaOrlater()
{
    return false;
}

}
