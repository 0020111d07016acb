#include "os/login/execline.h"

#include "os/login/glibowner.h"

#include <filesystem>

namespace osUtils::Login {

namespace {

// Desktop Entry Specification 1.5, "The Exec key": what must be quoted, and what needs a backslash
// between quotes.
constexpr auto reservedCharacters = " \t\n\"'\\><~|&;$*?#()`";
constexpr auto escapedCharacters = "\"`$\\";

/// Without the doubling that keeps a percent sign from beginning a field code.
std::string withSinglePercents(const std::string& word)
{
    std::string result;
    for (size_t i = 0; i < word.size(); ++i) {
        result += word[i];
        if (word[i] == '%' && i + 1 < word.size() && word[i + 1] == '%')
            ++i;
    }
    return result;
}

std::string firstWord(const std::string& line)
{
    char** words = nullptr;
    if (!g_shell_parse_argv(line.c_str(), nullptr, &words, nullptr))
        return {};
    const std::unique_ptr<char*, FreeFromGlib> owner(words);
    return withSinglePercents(words[0]);
}

}

std::string execLine(const std::string& program)
{
    std::string escaped;
    for (const char character : program) {
        if (character == '%')
            escaped += '%';
        if (std::string(escapedCharacters).find(character) != std::string::npos)
            escaped += '\\';
        escaped += character;
    }
    const bool needsQuotes = program.find_first_of(reservedCharacters) != std::string::npos;
    return needsQuotes ? '"' + escaped + '"' : escaped;
}

std::string startedProgram(const std::string& line)
{
    std::string word = firstWord(line);
    if (word.empty())
        return line;
    if (word.find('/') != std::string::npos)
        return word;
    const GlibText found(g_find_program_in_path(word.c_str()));
    if (!found)
        return word;
    // The PATH may name folders relative to the working directory.
    std::error_code error;
    const auto absolute = std::filesystem::absolute(found.get(), error);
    return error ? word : absolute.native();
}

}
