#include "os/process/processtable.h"

#include "os/process/procformat.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <memory>
#include <new>

namespace osUtils::Process {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::string pathOf(int pid, const char* entry)
{
    return "/proc/" + std::to_string(pid) + '/' + entry;
}

}

std::vector<int> processIds()
{
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir("/proc"));
    if (!folder && errno == ENOMEM)
        throw std::bad_alloc();

    std::vector<int> ids;
    while (const dirent* entry = folder ? ::readdir(folder.get()) : nullptr) {
        if (const std::optional<int> id = processIdFrom(entry->d_name))
            ids.push_back(*id);
    }
    // That the kernel lists them in order is promised nowhere.
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::optional<std::string> shortName(int pid)
{
    const int file = ::open(pathOf(pid, "comm").c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return std::nullopt;
    // Threads of the kernel itself show more than the name proper, up to 64 bytes (Linux 6).
    std::array<char, 128> text{};
    const ssize_t length = ::read(file, text.data(), text.size());
    ::close(file);

    // It may have ended since its file was opened.
    if (length < 0)
        return std::nullopt;
    const auto name = shortNameFrom({text.data(), static_cast<std::size_t>(length)});
    return name ? std::optional<std::string>(*name) : std::nullopt;
}

std::string executablePath(int pid)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(pathOf(pid, "exe").c_str(), target.data(), target.size() - 1);
    if (length <= 0)
        return {};
    const bool fileExists = ::access(target.data(), F_OK) == 0;
    return executablePathFrom({target.data(), static_cast<std::size_t>(length)}, fileExists);
}

}
