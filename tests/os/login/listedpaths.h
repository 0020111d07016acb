#pragma once

#include "os/login/loginitems.h"

#include <string>
#include <vector>

namespace TestSupport {

using Paths = std::vector<std::string>;

/// Paths of all login items, in their order.
inline Paths listedPaths()
{
    LoginItemArrayRef items;
    if (LIAECopyLoginItems(items) != LoginItemStatus::success)
        return {"not listed"};
    Paths paths;
    for (const LoginItem& item : *items)
        paths.push_back(item.URL->path());
    return paths;
}

}
