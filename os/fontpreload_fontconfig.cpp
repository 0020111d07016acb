#include "os/fontpreload.h"

#include "os/background.h"

#include <fontconfig/fontconfig.h>

namespace osUtils::System {

// What the library has read it keeps for the whole program. If it cannot be read beside the start, the
// toolkit has it read when it needs it.
FontPreload::FontPreload()
    : listing(inBackground([] { FcInit(); }))
{
}

}
