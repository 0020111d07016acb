#include "action/widget/wheelsteps.h"

#include <QWheelEvent>

#include <cstdlib>

namespace VcAction::Widget {

WheelTurn wheelTurn(const QWheelEvent& event)
{
    const QPoint angle = event.angleDelta();
    if (std::abs(angle.x()) > std::abs(angle.y()))
        return {angle.x(), true};
    return {angle.y(), false};
}

WheelSteps wheelSteps(int remainder, int delta)
{
    const bool turnedBack = (remainder < 0 && delta > 0) || (remainder > 0 && delta < 0);
    const int total = turnedBack ? delta : remainder + delta;
    const int steps = total / QWheelEvent::DefaultDeltasPerStep;
    return {steps, total - steps * QWheelEvent::DefaultDeltasPerStep};
}

}
