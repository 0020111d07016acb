#include "os/login/commandline.h"

#include <algorithm>
#include <filesystem>

namespace osUtils::Login {

namespace {

/// A word with its field codes replaced.
std::string expanded(const std::string& word, const DesktopEntry& entry)
{
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const bool isCode = word[i] == '%' && i + 1 < word.size();
        if (!isCode) {
            result += word[i];
            continue;
        }
        const char code = word[++i];
        if (code == '%')
            result += '%';
        else if (code == 'c')
            result += entry.name();
        else if (code == 'k')
            result += entry.path();
    }
    return result;
}

bool isOneOf(char character, const std::string& characters)
{
    return characters.find(character) != std::string::npos;
}

/// Whether a word means itself everywhere, in quotes or not.
bool isPlain(const std::string& word)
{
    return !word.empty() && std::all_of(word.begin(), word.end(), [](char character) {
        return g_ascii_isalnum(character) || isOneOf(character, "/._-+,:=@");
    });
}

/// Whether a word means itself everywhere if it is in quotes.
bool isQuotable(const std::string& word)
{
    return g_utf8_validate(word.data(), static_cast<gssize>(word.size()), nullptr)
        && std::none_of(word.begin(), word.end(), [](char character) {
               return g_ascii_iscntrl(character) || isOneOf(character, "\"$%\\`");
           });
}

}

std::vector<std::string> commandWords(const DesktopEntry& entry)
{
    std::vector<std::string> result;
    const std::string line = entry.value("Exec");
    char** words = nullptr;
    if (!g_shell_parse_argv(line.c_str(), nullptr, &words, nullptr))
        return result;
    const std::unique_ptr<char*, FreeFromGlib> owner(words);
    for (; *words; ++words) {
        const std::string word = *words;
        const std::string icon = word == "%i" ? entry.value("Icon") : "";
        if (!icon.empty())
            result.insert(result.end(), {"--icon", icon});
        else if (word.size() != 2 || word[0] != '%' || isOneOf(word[1], "%ck"))
            result.push_back(expanded(word, entry));
    }
    return result;
}

std::string startedProgram(const DesktopEntry& entry)
{
    const std::vector<std::string> words = commandWords(entry);
    if (words.empty() || words.front().empty())
        return entry.value("Exec");
    const std::string& word = words.front();
    const bool isPath = isOneOf('/', word);
    const GlibText found(isPath ? nullptr : g_find_program_in_path(word.c_str()));
    if (!found)
        return word;
    // The PATH may name folders relative to the working directory.
    std::error_code error;
    const auto absolute = std::filesystem::absolute(found.get(), error);
    return error ? word : absolute.native();
}

std::string execLine(const std::vector<std::string>& words)
{
    std::string line;
    std::string script = "exec";
    for (const std::string& word : words) {
        line += line.empty() ? "" : " ";
        line += isPlain(word) ? word : '"' + word + '"';
        script += ' ' + std::string(GlibText(g_shell_quote(word.c_str())).get());
    }
    if (std::all_of(words.begin(), words.end(), isQuotable))
        return line;
    // The shell reads its commands from the pipe; the program is not to read there.
    script += " </dev/null";
    const GlibText letters(
        g_base64_encode(reinterpret_cast<const guchar*>(script.data()), script.size()));
    return "/bin/sh -c \"echo " + std::string(letters.get()) + " | base64 -d | /bin/sh\"";
}

}
