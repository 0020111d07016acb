#pragma once

class QWheelEvent;

namespace VcAction::Widget {

/// One wheel event's turn, in eighths of a degree, along the axis that it turned about most (the
/// vertical one where both are equal).
struct WheelTurn {
    int delta = 0;
    bool horizontal = false;
};

[[nodiscard]] WheelTurn wheelTurn(const QWheelEvent& event);

/// Whole notches of the wheel, and what is left over for the next event.
struct WheelSteps {
    int steps = 0;
    int remainder = 0;

    bool operator==(const WheelSteps&) const = default;
};

/// Adds a turn to what earlier ones left over. A turn back drops the remainder.
/// @param remainder, delta  in eighths of a degree, 120 for each notch
[[nodiscard]] WheelSteps wheelSteps(int remainder, int delta);

}
