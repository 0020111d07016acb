#include "os/login/newentry.h"

#include "os/login/commandline.h"
#include "os/login/loginitemurl.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace osUtils::Login {

namespace {

constexpr std::size_t longestNamePart = 32;

/// A name that can be shown: valid UTF-8 on one line.
std::string shownName(const std::string& path)
{
    const std::string name = std::filesystem::path(path).filename();
    const std::string& shown = name.empty() ? path : name;
    std::string valid = GlibText(g_utf8_make_valid(shown.c_str(), -1)).get();
    std::replace_if(
        valid.begin(), valid.end(), [](char letter) { return g_ascii_iscntrl(letter); }, ' ');
    return valid;
}

bool isProgram(const std::string& path)
{
    std::error_code error;
    return !std::filesystem::is_directory(path, error) && access(path.c_str(), X_OK) == 0;
}

/// The command line of an application, and what else it is started with.
bool copyStart(const DesktopEntry& application, DesktopEntry& entry)
{
    const std::vector<std::string> words = commandWords(application);
    if (words.empty() || !GlibText(g_find_program_in_path(words.front().c_str())))
        return false;
    for (const char* key : {"Icon", "Path", "Terminal"}) {
        if (const std::string value = application.value(key); !value.empty())
            entry.setValue(key, value);
    }
    entry.setValue("Exec", execLine(words));
    return true;
}

}

bool startsSomething(const std::optional<DesktopEntry>& entry)
{
    return entry && entry->isApplication() && !entry->value("Exec").empty();
}

std::optional<DesktopEntry> entryFor(const std::string& path)
{
    DesktopEntry entry;
    entry.setValue("Type", "Application");
    entry.setValue("Name", shownName(path));
    const auto application =
        path.ends_with(DesktopEntry::suffix) ? DesktopEntry::read(path) : std::nullopt;
    if (application && application->isApplication()) {
        if (const std::string name = application->name(); !name.empty())
            entry.setValue("Name", name);
        if (!copyStart(*application, entry))
            return std::nullopt;
    } else {
        using Words = std::vector<std::string>;
        entry.setValue("Exec", execLine(isProgram(path) ? Words{path} : Words{"xdg-open", path}));
    }
    if (startedProgram(entry) != path)
        entry.setValue(urlKey, LoginItemUrl::fromRawText(path)->text());
    return entry;
}

std::string entryName(const std::string& path, std::int64_t position)
{
    std::string name = std::filesystem::path(path).filename();
    name.resize(std::min(name.size(), longestNamePart));
    std::replace_if(
        name.begin(), name.end(),
        [](char letter) { return !g_ascii_isalnum(letter) && letter != '.'; }, '_');
    return "korvel-" + name + '-' + std::to_string(position) + DesktopEntry::suffix;
}

DesktopEntry switchedOffEntry(const std::string& name)
{
    DesktopEntry entry;
    entry.setValue("Type", "Application");
    entry.setValue("Name", shownName(name));
    entry.setValue("Hidden", "true");
    return entry;
}

bool isSwitchedOff(const std::optional<DesktopEntry>& entry)
{
    return entry && entry->isTrue("Hidden") && entry->value("Exec").empty();
}

}
