#pragma once

#include <future>

namespace osUtils::System {

/// Has the system's fonts listed in the background, which takes nearly as long as starting the toolkit;
/// else the first text would wait for it. To be kept until the toolkit has been started.
class FontPreload {
public:
    FontPreload();

private:
    std::future<void> listing;
};

}
