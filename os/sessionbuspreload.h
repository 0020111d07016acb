#pragma once

#include <future>

namespace osUtils::System {

/// Has the toolkit connect to the session's message bus in the background. It is the first widget with a name
/// for screen readers that would do so, and wait for it. To be made when there is an application, and kept while it
/// makes its widgets.
class SessionBusPreload {
public:
    SessionBusPreload();

private:
    std::future<void> connecting;
};

}
