#include "os/fontpreload.h"

#include <fontconfig/fontconfig.h>

#include <system_error>

namespace osUtils::System {

FontPreload::FontPreload()
{
    try {
        // What the library has read it keeps for the whole program.
        listing = std::async(std::launch::async, [] { FcInit(); });
    } catch (const std::system_error&) {
        // No thread to be had: the toolkit does it when it needs them.
    }
}

}
