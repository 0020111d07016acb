#include "os/desktopentry/desktopentry.h"

#include <filesystem>
#include <string_view>

namespace osUtils {

namespace {

constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;

// The largest entries that programs install, with all their translations, have a tenth of this.
constexpr std::uintmax_t largestEntry = std::uintmax_t{1024} * 1024;

std::string withoutEscapes(std::string_view raw)
{
    constexpr std::string_view letters = "sntr\\";
    constexpr std::string_view meanings = " \n\t\r\\";
    std::string result;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const std::size_t escape = raw[i] == '\\' && i + 1 < raw.size() ? letters.find(raw[i + 1])
                                                                        : std::string_view::npos;
        const bool isEscape = escape != std::string_view::npos;
        result += isEscape ? meanings[escape] : raw[i];
        i += isEscape ? 1 : 0;
    }
    return result;
}

}

std::optional<DesktopEntry> DesktopEntry::read(const std::string& path)
{
    std::error_code error;
    // To open a pipe or a device could take for ever or set something going.
    if (!std::filesystem::is_regular_file(path, error)
        || std::filesystem::file_size(path, error) > largestEntry)
        return std::nullopt;
    DesktopEntry entry;
    entry.file = path;
    if (!g_key_file_load_from_file(entry.keys.get(), path.c_str(), G_KEY_FILE_NONE, nullptr)
        || !g_key_file_has_group(entry.keys.get(), group))
        return std::nullopt;
    return entry;
}

std::string DesktopEntry::value(const std::string& key) const
{
    const GlibText raw(g_key_file_get_value(keys.get(), group, key.c_str(), nullptr));
    return raw ? withoutEscapes(raw.get()) : std::string();
}

bool DesktopEntry::isTrue(const char* key) const
{
    return g_key_file_get_boolean(keys.get(), group, key, nullptr);
}

std::string DesktopEntry::name() const
{
    std::string name;
    for (const char* const* language = g_get_language_names(); *language && name.empty();
         ++language)
        name = value("Name[" + std::string(*language) + ']');
    if (name.empty())
        name = value("Name");
    return g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) ? name : "";
}

bool DesktopEntry::isApplication() const
{
    return value("Type") == "Application" && !isTrue("Hidden");
}

void DesktopEntry::setValue(const char* key, const std::string& value)
{
    g_key_file_set_string(keys.get(), group, key, value.c_str());
}

std::string DesktopEntry::bytes() const
{
    const GlibText data(g_key_file_to_data(keys.get(), nullptr, nullptr));
    return data.get();
}

}
