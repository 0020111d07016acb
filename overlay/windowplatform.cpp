#include "overlay/windowplatform.h"

#include "overlay/windowplatform_none.h"
#include "overlay/windowplatform_x11.h"

namespace Helpers::NQt {

const WindowPlatform& windowPlatform(const QString& pluginName)
{
    static const WindowPlatformNone none;
    static const WindowPlatformX11 x11;
    if (pluginName == QLatin1String("xcb"))
        return x11;
    return none;
}

}
