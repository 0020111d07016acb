#include "os/process/windowidentity.h"

#include <climits>

namespace osUtils::Process {

namespace {

/// The text up to the first zero byte.
std::string_view firstText(std::string_view bytes)
{
    return bytes.substr(0, bytes.find('\0'));
}

}

WindowClass windowClassFrom(std::string_view property)
{
    const std::string_view instance = firstText(property);
    const bool hasName = instance.size() < property.size();
    const std::string_view name = hasName ? firstText(property.substr(instance.size() + 1)) : "";
    return {std::string(instance), std::string(name)};
}

std::optional<int> localProcess(const std::vector<uint32_t>& ids, std::string_view machine,
                                std::string_view host)
{
    if (ids.size() != 1 || ids.front() == 0 || ids.front() > INT_MAX)
        return std::nullopt;
    // Some programs count the zero byte at the end as part of the text.
    if (host.empty() || firstText(machine) != host)
        return std::nullopt;
    return static_cast<int>(ids.front());
}

}
