#pragma once

#include <future>
#include <system_error>
#include <utility>

namespace Windowing {

/// Runs a task on a thread of its own or, if the system has no thread left, when the result is
/// asked for. The future's destructor waits for the thread.
template <typename Task> auto inBackground(Task task) -> std::future<decltype(task())>
{
    try {
        return std::async(std::launch::async, task);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, std::move(task));
    }
}

}
