#pragma once

#include <future>
#include <system_error>
#include <utility>

namespace osUtils {

/// Does something on a thread of its own; the future waits for its end, at the latest when it goes.
/// @return  without a state where there is no thread to be had, and nothing is done
template <typename Task> auto inBackground(Task task) -> std::future<decltype(task())>
{
    try {
        return std::async(std::launch::async, std::move(task));
    } catch (const std::system_error&) {
        return {};
    }
}

}
