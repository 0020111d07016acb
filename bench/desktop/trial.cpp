#include "bench/desktop/trial.h"

#include "bench/desktop/failure.h"

#include <thread>

namespace Bench {

namespace {

using namespace std::chrono_literals;

/// Between two moves of the mice that report most often, of the common ones; most take eight times
/// as long.
constexpr auto fastestMouse = 1ms;

bool hasWindows(const XConnection& x)
{
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(x.raw(), xcb_query_tree(x.raw(), x.root()), nullptr));
    return tree && xcb_query_tree_children_length(tree.get()) > 0;
}

/// Makes ready what the program finds, and tells how to start it.
Command prepare(const Annotator& annotator, const Desktop& desktop)
{
    annotator.writeSettings(desktop.home);
    desktop.pointer.moveTo(Trial::RestingPoint);
    waitFor([&] { return !hasWindows(desktop.x); }, "windows of the program before are left");
    return {
        .program = annotator.executable(),
        .arguments = annotator.arguments(),
        .environment = desktop.home.environment(desktop.display),
        .deathSignal = SIGKILL, // also ends one that has been stopped
    };
}

}

Trial::Trial(const Annotator& measured, const Desktop& where)
    : annotator(measured)
    , desktop(where)
    , hand(where.x)
    , probe(where.x)
    , paper(paperOn(where.x.size()))
    , command(prepare(measured, where))
    , compositor(measured.wantsCompositor() ? std::make_unique<Compositor>(where) : nullptr)
    , started(Clock::now())
    , process(command)
    , meter(process.pid())
{
}

Clock::time_point Trial::waitUntilShown() const
{
    waitFor([this] { return annotator.isShown(*this); }, "the program shows nothing");
    return Clock::now();
}

void Trial::waitUntilReady() const
{
    waitUntilShown();
    annotator.chooseTool(*this);
    meter.waitForRest();
}

Clock::time_point Trial::drawFirstStroke() const
{
    constexpr auto oneTry = 20ms;
    const Clock::time_point end = Clock::now() + LongestWait;
    for (int number = 0; Clock::now() < end; ++number) {
        const QPoint from(RestingPoint.x() + 10, 10 + 10 * (number % 8));
        hand.moveTo(from);
        hand.press();
        hand.moveTo(from + QPoint(30, 0));
        const bool drawn = probe.seesInk(from + QPoint(15, 0), oneTry);
        const Clock::time_point seen = Clock::now();
        hand.release();
        if (drawn)
            return seen;
    }
    throw Failure("the program does not draw");
}

void Trial::beginStroke(QPoint at) const
{
    hand.moveTo(at - LeadIn);
    hand.press();
    hand.moveTo(at);
    probe.waitForInk(at);
}

QList<double> Trial::drawWaiting(const QList<QPoint>& points) const
{
    QList<double> latencies;
    for (const QPoint point : points) {
        const Clock::time_point sent = Clock::now();
        hand.moveTo(point);
        latencies.append(milliseconds(probe.waitForInk(point) - sent));
        std::this_thread::sleep_until(sent + fastestMouse);
    }
    return latencies;
}

}
