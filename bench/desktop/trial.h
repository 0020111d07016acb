#pragma once

#include "bench/desktop/annotators/annotator.h"
#include "bench/desktop/compositor.h"
#include "bench/desktop/hand.h"
#include "bench/desktop/paths.h"
#include "bench/desktop/pixelprobe.h"
#include "bench/desktop/processmeter.h"
#include "tests/desktop/harness/desktop.h"
#include "tests/desktop/harness/pointer.h"

#include <memory>

namespace Bench {

/// One start of one program on an empty white desktop, and all that is needed to draw with it and
/// to measure it. The program ends with this object.
class Trial {
public:
    static constexpr QRgb Paper = 0xffffff;
    /// Where the pointer waits for the program, beside the paper.
    static constexpr QPoint RestingPoint{60, 60};

    /// Returns when the program has been executed. Throws Failure if the last one's windows do not
    /// go away.
    Trial(const Annotator& annotator, const Desktop& desktop);
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    /// Returns when what it shows on start is seen first. Throws Failure.
    Clock::time_point waitUntilShown() const;
    /// Returns when the program can be drawn with and has nothing else to do. Throws Failure.
    void waitUntilReady() const;
    /// Tries to draw until ink stays where the pointer has left; tells when it was seen. Beside the
    /// paper.
    Clock::time_point drawFirstStroke() const;
    /// From where a stroke begins to its first point: a press alone leaves no ink in some programs.
    static constexpr QPoint LeadIn{12, 0};
    /// Presses the button, moves by the lead-in and waits for ink at the point.
    void beginStroke(QPoint at) const;
    /// Draws through all points at the pace of a fast mouse, waiting for the ink at each; what each
    /// took in milliseconds.
    [[nodiscard]] QList<double> drawWaiting(const QList<QPoint>& points) const;

    const Annotator& annotator;
    const Desktop& desktop;
    const Hand hand;
    const PixelProbe probe;
    const QRect paper;

private:
    const Command command;
    std::unique_ptr<Compositor> compositor;

public:
    const Clock::time_point started;
    ChildProcess process;
    const ProcessMeter meter;
};

}
