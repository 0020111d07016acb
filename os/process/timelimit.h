#pragma once

#include <chrono>
#include <functional>

/// Work that may never end, such as a question to somebody who is silent.
namespace osUtils::Process {

/// Does the work on a thread of its own, and tells whether it ended in time.
///
/// Work that did not is given up: it goes on in its thread, so it must own all that it uses. Until it
/// ends, further work is not begun but given up at once, so that neither time nor threads are lost.
[[nodiscard]] bool endsWithin(std::chrono::milliseconds limit, const std::function<void()>& work);

}
