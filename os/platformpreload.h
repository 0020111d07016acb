#pragma once

#include <future>

namespace osUtils::System {

/// Has the toolkit's part for the window system loaded in the background, which the toolkit loads late in its
/// start, when nothing else can go on. To be kept until the toolkit has been started.
class PlatformPreload {
public:
    PlatformPreload();

private:
    std::future<void> loading;
};

}
