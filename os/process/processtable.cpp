#include "os/process/processtable.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <sstream>

namespace osUtils::Process {

namespace {

namespace fs = std::filesystem;

fs::path pathOf(int pid, const char* entry)
{
    return "/proc/" + std::to_string(pid) + '/' + entry;
}

/// All bytes of a file; none of one that cannot be read, as that of a process that has ended.
std::string bytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The process that an entry of the table's folder is of; 0 for other entries.
int processIn(const std::string& entry)
{
    int id = 0;
    const char* const end = entry.data() + entry.size();
    const auto [rest, error] = std::from_chars(entry.data(), end, id);
    return error == std::errc() && rest == end ? id : 0;
}

}

std::vector<int> processIds()
{
    std::vector<int> ids;
    std::error_code error;
    fs::directory_iterator entry("/proc", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (const int id = processIn(entry->path().filename()); id > 0)
            ids.push_back(id);
    }
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
    // That the kernel lists them in order is promised nowhere.
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::optional<std::string> shortName(int pid)
{
    std::string name = bytesOf(pathOf(pid, "comm"));
    if (name.empty())
        return std::nullopt;
    if (name.back() == '\n')
        name.pop_back();
    return name;
}

std::string wholeName(int pid)
{
    // An interpreter, its options and the script, whose name the kernel takes.
    constexpr int mostWords = 4;

    std::string name = shortName(pid).value_or(std::string());
    if (name.size() != longestShortName)
        return name;
    std::istringstream words(executablePath(pid) + '\0' + bytesOf(pathOf(pid, "cmdline")));
    std::string word;
    for (int i = 0; i < mostWords && std::getline(words, word, '\0'); ++i) {
        if (std::string file = fs::path(word).filename(); file.starts_with(name))
            return file;
    }
    return name;
}

std::string executablePath(int pid)
{
    constexpr std::string_view removedMark = " (deleted)";
    std::error_code error;
    std::string target = fs::read_symlink(pathOf(pid, "exe"), error);
    // The kernel marks the target of an executable that was removed or replaced.
    if (target.ends_with(removedMark) && !fs::exists(target, error))
        target.resize(target.size() - removedMark.size());
    return target;
}

}
