#include "os/login/keyfile.h"

namespace osUtils::Login {

namespace {

constexpr auto group = "Desktop Entry";

std::string charactersOf(const std::string& bytes)
{
    std::string characters;
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        if (number < 0x80) {
            characters += byte;
        } else {
            characters += static_cast<char>(0xC0 | (number >> 6));
            characters += static_cast<char>(0x80 | (number & 0x3F));
        }
    }
    return characters;
}

/// The reverse of charactersOf(), for nothing else.
std::string bytesOf(const std::string& characters)
{
    std::string bytes;
    for (size_t i = 0; i < characters.size(); ++i) {
        const auto first = static_cast<unsigned char>(characters[i]);
        if (first < 0x80 || i + 1 == characters.size()) {
            bytes += characters[i];
        } else {
            const auto second = static_cast<unsigned char>(characters[++i]);
            bytes += static_cast<char>(((first & 0x03) << 6) | (second & 0x3F));
        }
    }
    return bytes;
}

}

KeyFile::KeyFile()
    : file(g_key_file_new())
{
}

std::optional<KeyFile> KeyFile::parse(const std::string& bytes)
{
    KeyFile parsed;
    const std::string characters = charactersOf(bytes);
    const bool isWellFormed = g_key_file_load_from_data(
        parsed.file.get(), characters.data(), characters.size(), G_KEY_FILE_NONE, nullptr);
    if (!isWellFormed || !g_key_file_has_group(parsed.file.get(), group))
        return std::nullopt;
    return parsed;
}

std::optional<std::string> KeyFile::value(const char* key) const
{
    const GlibText found(g_key_file_get_string(file.get(), group, key, nullptr));
    if (!found)
        return std::nullopt;
    return bytesOf(found.get());
}

bool KeyFile::isTrue(const char* key) const
{
    return g_key_file_get_boolean(file.get(), group, key, nullptr);
}

void KeyFile::setValue(const char* key, const std::string& value)
{
    g_key_file_set_string(file.get(), group, key, charactersOf(value).c_str());
    // GLib escapes tabs at the beginning only; the standard allows control characters nowhere.
    const GlibText escaped(g_key_file_get_value(file.get(), group, key, nullptr));
    std::string withoutTabs;
    for (const char* next = escaped.get(); *next; ++next)
        withoutTabs += *next == '\t' ? "\\t" : std::string(1, *next);
    g_key_file_set_value(file.get(), group, key, withoutTabs.c_str());
}

std::string KeyFile::bytes() const
{
    gsize size = 0;
    const GlibText characters(g_key_file_to_data(file.get(), &size, nullptr));
    return bytesOf(std::string(characters.get(), size));
}

}
