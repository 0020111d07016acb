#pragma once

#include <future>
#include <system_error>
#include <utility>

namespace Windowing {

/// Does something on a thread of its own, or, where there is none to be had, when its result is asked for. The
/// future waits for the thread's end, at the latest when it goes.
template <typename Task> auto inBackground(Task task) -> std::future<decltype(task())>
{
    try {
        return std::async(std::launch::async, task);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, std::move(task));
    }
}

}
