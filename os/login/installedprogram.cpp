#include "os/login/installedprogram.h"

#include "os/login/autostartentry.h"
#include "os/login/entryfile.h"
#include "os/login/userfolders.h"

#include <fcntl.h>

#include <filesystem>

namespace osUtils::Login {

namespace {

/// Bytes of the file with an id, which is relative to the folder; none if there is no such file.
std::optional<std::string> entryBytesBelow(const std::string& folder, const std::string& id)
{
    std::optional<std::string> bytes;
    const std::string file = folder + '/' + id + entrySuffix;
    // A file that cannot be read is as good as none, to sessions too.
    const OSStatus status = readEntryFile(AT_FDCWD, file, bytes);
    if (status == LoginItemStatus::success && bytes)
        return bytes;
    for (size_t dash = id.find('-'); dash != std::string::npos; dash = id.find('-', dash + 1)) {
        const std::string subFolder = folder + '/' + id.substr(0, dash);
        std::error_code error;
        if (dash == 0 || !std::filesystem::is_directory(subFolder, error))
            continue;
        if (auto found = entryBytesBelow(subFolder, id.substr(dash + 1)))
            return found;
    }
    return std::nullopt;
}

}

std::optional<std::string> installedProgram(const std::string& id)
{
    const bool isId =
        !id.empty() && id.find('/') == std::string::npos && id.find('\0') == std::string::npos;
    if (!isId)
        return std::nullopt;
    for (const std::string& folder : applicationPaths()) {
        const auto bytes = entryBytesBelow(folder, id);
        if (!bytes)
            continue;
        const auto entry = parseEntry(*bytes);
        if (!entry || !entry->program.starts_with('/'))
            return std::nullopt;
        return entry->program;
    }
    return std::nullopt;
}

}
