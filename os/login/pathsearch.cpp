#include "os/login/pathsearch.h"

#include "os/desktopentry/glibowner.h"

namespace osUtils::Login {

namespace {

// Behind the last of Unicode's characters, where stray bytes cannot be taken for any.
constexpr char32_t strayBytes = 0x110000;

std::u32string folded(const std::string& text)
{
    std::u32string result;
    for (size_t i = 0; i < text.size();) {
        const char* const start = text.data() + i;
        const gunichar character =
            g_utf8_get_char_validated(start, static_cast<gssize>(text.size() - i));
        // Stray bytes and unfinished characters are the two largest numbers; a zero has no folding.
        if (character == 0 || character >= strayBytes) {
            result += static_cast<char32_t>(strayBytes + static_cast<unsigned char>(text[i++]));
            continue;
        }
        const auto size = g_utf8_next_char(start) - start;
        const GlibText folding(g_utf8_casefold(start, size));
        for (const char* next = folding.get(); *next; next = g_utf8_next_char(next))
            result += static_cast<char32_t>(g_utf8_get_char(next));
        i += static_cast<size_t>(size);
    }
    return result;
}

}

bool occursInPath(const std::string& text, const std::string& path)
{
    return !text.empty() && folded(path).find(folded(text)) != std::u32string::npos;
}

}
