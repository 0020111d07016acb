#include "os/login/newentryname.h"

#include "os/login/entryfile.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <random>

namespace osUtils::Login {

namespace {

constexpr size_t longestProgramPart = 32;

std::string safeName(const std::string& program)
{
    std::string name = std::filesystem::path(program).filename().native();
    name.resize(std::min(name.size(), longestProgramPart));
    for (char& character : name) {
        if (!g_ascii_isalnum(character) && character != '.')
            character = '_';
    }
    return name;
}

std::string randomDigits()
{
    std::random_device random;
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x%08x", random(), random());
    return digits.data();
}

}

std::string newEntryName(const std::string& program)
{
    return "korvel-" + safeName(program) + '-' + randomDigits() + entrySuffix;
}

}
