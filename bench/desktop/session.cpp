#include "bench/desktop/session.h"

#include "bench/desktop/annotators/bareclient.h"
#include "bench/desktop/annotators/emptywindow.h"
#include "bench/desktop/annotators/flameshot.h"
#include "bench/desktop/annotators/gromitmpx.h"
#include "bench/desktop/annotators/korvel.h"
#include "bench/desktop/failure.h"
#include "bench/desktop/results.h"
#include "bench/desktop/row.h"
#include "bench/desktop/trial.h"
#include "tests/desktop/harness/virtualserver.h"

#include <cstdio>

namespace Bench {

namespace {

template <typename... Kinds>
std::vector<std::unique_ptr<Annotator>> installed(Session::Programs wanted)
{
    std::vector<std::unique_ptr<Annotator>> found;
    const auto add = [&](std::unique_ptr<Annotator> annotator) {
        if (annotator->role() == Annotator::Role::Peer && wanted == Session::Programs::WithoutPeers)
            return;
        if (annotator->isInstalled())
            found.push_back(std::move(annotator));
        else
            std::fprintf(stderr, "%s is not installed\n", annotator->name().constData());
    };
    (add(std::make_unique<Kinds>()), ...);
    return found;
}

void tell(const Subject& subject, const char* outcome)
{
    std::fprintf(stderr, "%s, %d x %d, %s, run %d: %s\n", subject.row.constData(),
                 subject.screen.width(), subject.screen.height(), subject.program.constData(),
                 subject.run, outcome);
}

}

Session::Session(Results& destination, Programs measured)
    : results(destination)
    , annotators(installed<BareClient, EmptyWindow, Korvel, GromitMpx, Flameshot>(measured))
{
}

void Session::measure(const Row& row)
{
    for (const QSize screen : row.screens())
        measureOn(screen, row);
}

void Session::measureOn(QSize screen, const Row& row)
{
    const VirtualServer server(screen);
    if (server.display().isEmpty())
        throw Failure("the X server does not start");
    const Desktop desktop(server.display());
    desktop.backdrop.fill(Qt::white);
    warmUp(row, desktop);
    int runs = 0;
    for (const auto& annotator : annotators)
        runs = std::max(runs, row.runs(annotator->role()));
    for (int run = 1; run <= runs; ++run) {
        for (const auto& annotator : annotators) {
            if (run <= row.runs(annotator->role()))
                measureOnce(row, *annotator, desktop, {row.name(), screen, annotator->name(), run});
        }
    }
}

void Session::warmUp(const Row& row, const Desktop& desktop) const
{
    // Fills the caches of files and fonts.
    for (const auto& annotator : annotators) {
        if (row.runs(annotator->role()) == 0)
            continue;
        try {
            Trial(*annotator, desktop).waitUntilReady();
        } catch (const Failure& failure) {
            std::fprintf(stderr, "%s: %s\n", annotator->name().constData(), failure.what());
        }
    }
}

void Session::measureOnce(const Row& row, const Annotator& annotator, const Desktop& desktop,
                          const Subject& subject)
{
    Record record(results, subject);
    try {
        Trial trial(annotator, desktop);
        row.measure(trial, record);
        tell(subject, "done");
    } catch (const Failure& failure) {
        tell(subject, failure.what());
    }
}

}
