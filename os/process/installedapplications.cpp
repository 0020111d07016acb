#include "os/process/installedapplications.h"

#include "os/login/entryfile.h"
#include "os/login/glibowner.h"
#include "os/login/userfolders.h"

#include <fcntl.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>

namespace osUtils::Process {

namespace {

namespace fs = std::filesystem;

constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;

std::string textOf(const Login::GlibText& text)
{
    return text ? text.get() : std::string{};
}

/// The entry of an application; none for other kinds, for deleted entries and what is no entry.
std::optional<ApplicationEntry> readEntry(const std::string& id, const fs::path& path)
{
    std::optional<std::string> bytes;
    if (Login::readEntryFile(AT_FDCWD, path.native(), bytes) != LoginItemStatus::success || !bytes)
        return std::nullopt;
    const std::string& content = *bytes;
    const std::unique_ptr<GKeyFile, Login::FreeFromGlib> file(g_key_file_new());
    if (!g_key_file_load_from_data(file.get(), content.data(), content.size(), G_KEY_FILE_NONE,
                                   nullptr))
        return std::nullopt;
    const auto text = [&file](const char* key) {
        return textOf(Login::GlibText(g_key_file_get_string(file.get(), group, key, nullptr)));
    };
    if (text(G_KEY_FILE_DESKTOP_KEY_TYPE) != G_KEY_FILE_DESKTOP_TYPE_APPLICATION
        || g_key_file_get_boolean(file.get(), group, G_KEY_FILE_DESKTOP_KEY_HIDDEN, nullptr))
        return std::nullopt;
    const Login::GlibText name(g_key_file_get_locale_string(
        file.get(), group, G_KEY_FILE_DESKTOP_KEY_NAME, nullptr, nullptr));
    return ApplicationEntry{id, textOf(name), text(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS)};
}

/// Ids and files of the desktop entries in a folder and the folders below it, in the order of ids.
std::map<std::string, fs::path> entryFiles(const fs::path& folder)
{
    std::map<std::string, fs::path> files;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                           error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code unreadable;
        if (entry->path().extension() != Login::entrySuffix || !entry->is_regular_file(unreadable))
            continue;
        // Folders become part of the id: kde4/dolphin.desktop has the id kde4-dolphin.
        fs::path relative = entry->path().lexically_relative(folder);
        std::string id = relative.replace_extension().native();
        std::replace(id.begin(), id.end(), '/', '-');
        files.emplace(id, entry->path());
    }
    return files;
}

}

std::vector<ApplicationEntry> installedApplications()
{
    std::vector<ApplicationEntry> applications;
    std::map<std::string, fs::path> seen;
    for (const std::string& folder : Login::applicationPaths()) {
        for (const auto& [id, path] : entryFiles(folder)) {
            if (!seen.emplace(id, path).second)
                continue;
            if (const auto application = readEntry(id, path))
                applications.push_back(*application);
        }
    }
    return applications;
}

}
