#include "action/toolbar/fadeanimation.h"

#include "action/toolbar/actiontoolbar.h"

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

}
