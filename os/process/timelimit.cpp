#include "os/process/timelimit.h"

#include <atomic>
#include <condition_variable>
#include <csignal>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace osUtils::Process {

namespace {

// Work that was given up and has not ended yet.
std::atomic<int> givenUpWorks = 0;

/// What the thread that works and the one that waits tell each other.
struct Progress {
    std::mutex mutex;
    std::condition_variable changed;
    bool hasEnded = false;
    bool isGivenUp = false;
};

/// Leaves the process's signals to its other threads, and keeps a connection that breaks while it is
/// written to from ending the process.
void blockSignals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

void doWork(const std::function<void()>& work, Progress& progress)
{
    blockSignals();
    work();
    const std::lock_guard lock(progress.mutex);
    progress.hasEnded = true;
    if (progress.isGivenUp)
        --givenUpWorks;
    progress.changed.notify_one();
}

bool waitFor(Progress& progress, std::chrono::milliseconds limit)
{
    std::unique_lock lock(progress.mutex);
    if (progress.changed.wait_for(lock, limit, [&progress] { return progress.hasEnded; }))
        return true;
    progress.isGivenUp = true;
    ++givenUpWorks;
    return false;
}

}

bool endsWithin(std::chrono::milliseconds limit, const std::function<void()>& work)
{
    if (givenUpWorks > 0)
        return false;
    // Shared, since nobody knows which of the two threads is the last to need it.
    const auto progress = std::make_shared<Progress>();
    try {
        std::thread([work, progress] { doWork(work, *progress); }).detach();
    } catch (const std::system_error&) {
        return false; // no more threads to be had
    }
    return waitFor(*progress, limit);
}

}
