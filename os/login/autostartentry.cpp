#include "os/login/autostartentry.h"

#include "os/login/execline.h"
#include "os/login/keyfile.h"

#include <glib.h>

#include <charconv>
#include <filesystem>

namespace osUtils::Login {

namespace {

constexpr auto typeKey = "Type";
constexpr auto applicationType = "Application";
constexpr auto nameKey = "Name";
constexpr auto execKey = "Exec";
// The standard's way to delete an entry.
constexpr auto deletedKey = "Hidden";
constexpr auto hiddenKey = "X-Korvel-Hidden";
constexpr auto positionKey = "X-Korvel-Position";

std::optional<std::int64_t> toPosition(const std::string& text)
{
    std::int64_t position = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, position);
    if (error != std::errc{} || rest != end || position < 1)
        return std::nullopt;
    return position;
}

/// A name that can be shown: valid UTF-8 on one line.
std::string displayName(const std::string& program)
{
    const std::string fileName = std::filesystem::path(program).filename().native();
    const std::string& shown = fileName.empty() ? program : fileName;
    const GlibText valid(g_utf8_make_valid(shown.data(), static_cast<gssize>(shown.size())));
    std::string name = valid.get();
    for (char& character : name) {
        if (g_ascii_iscntrl(character))
            character = ' ';
    }
    return name;
}

}

std::optional<AutostartEntry> parseEntry(const std::string& bytes)
{
    const auto file = KeyFile::parse(bytes);
    if (!file || file->value(typeKey) != applicationType || file->isTrue(deletedKey))
        return std::nullopt;
    const auto exec = file->value(execKey);
    if (!exec || exec->empty())
        return std::nullopt;

    AutostartEntry entry;
    entry.program = startedProgram(*exec);
    entry.hidden = file->isTrue(hiddenKey);
    if (const auto position = file->value(positionKey))
        entry.position = toPosition(*position);
    return entry;
}

std::string entryBytes(const AutostartEntry& entry)
{
    KeyFile file;
    file.setValue(typeKey, applicationType);
    file.setValue(nameKey, displayName(entry.program));
    file.setValue(execKey, execLine(entry.program));
    file.setValue(hiddenKey, entry.hidden ? "true" : "false");
    if (entry.position)
        file.setValue(positionKey, std::to_string(*entry.position));
    return file.bytes();
}

}
