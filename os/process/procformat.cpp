#include "os/process/procformat.h"

#include <charconv>

namespace osUtils::Process {

std::optional<int> processIdFrom(std::string_view entry)
{
    int id = 0;
    const char* const end = entry.data() + entry.size();
    const auto [rest, error] = std::from_chars(entry.data(), end, id);
    if (error != std::errc() || rest != end || id <= 0)
        return std::nullopt;
    return id;
}

std::optional<std::string_view> shortNameFrom(std::string_view file)
{
    if (file.empty())
        return std::nullopt;
    if (file.back() == '\n')
        file.remove_suffix(1);
    return file;
}

std::string executablePathFrom(std::string_view target, bool fileExists)
{
    constexpr std::string_view removedMark = " (deleted)";
    if (!fileExists && target.ends_with(removedMark))
        target.remove_suffix(removedMark.size());
    return std::string(target);
}

}
