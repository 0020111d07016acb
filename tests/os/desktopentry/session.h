#pragma once

#include "os/login/loginitems.h"
#include "windowsystem/filedescriptor.h"

#include <QByteArray>
#include <QTest>
#include <QtGlobal>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

Q_DECLARE_METATYPE(std::string)

namespace TestSupport {

using Path = std::filesystem::path;

inline void writeFile(const Path& path, const std::string& bytes)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string readFile(const Path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The text of an entry that starts a program.
/// @param more  further lines
inline std::string entryText(const std::string& exec, const std::string& more = {})
{
    return "[Desktop Entry]\nType=Application\nName=Painter\nExec=" + exec + '\n' + more;
}

/// Adds a table of texts.
/// @param rows  a name for each, and a text for each column
inline void addTextRows(const std::vector<const char*>& columns,
                        const std::vector<std::vector<std::string>>& rows)
{
    for (const char* column : columns)
        QTest::addColumn<std::string>(column);
    for (const std::vector<std::string>& row : rows) {
        QTestData& data = QTest::newRow(row.front().c_str());
        for (auto text = row.begin() + 1; text != row.end(); ++text)
            data << *text;
    }
}

/// Names of what a folder holds, those that begin with a dot included.
inline std::set<std::string> namesIn(const Path& folder)
{
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(folder))
        names.insert(file.path().filename().native());
    return names;
}

/// What the process writes to a stream meanwhile.
inline std::string printedBy(const std::function<void()>& deed, std::FILE* stream = stdout)
{
    std::fflush(stream);
    const osUtils::FileDescriptor before(dup(fileno(stream)));
    const osUtils::FileDescriptor capture(memfd_create("printed", MFD_CLOEXEC));
    dup2(capture.number(), fileno(stream));
    deed();
    std::fflush(stream);
    dup2(before.number(), fileno(stream));
    std::string printed(1000, ' ');
    printed.resize(static_cast<std::size_t>(
        std::max(ssize_t{0}, pread(capture.number(), printed.data(), printed.size(), 0))));
    return printed;
}

using Paths = std::vector<std::string>;

/// Paths of all login items, in their order.
inline Paths listedPaths()
{
    LoginItemArrayRef items;
    if (LIAECopyLoginItems(items) != LoginItemStatus::success)
        return {"not listed"};
    Paths paths;
    for (const LoginItem& item : *items)
        paths.push_back(item.URL->path());
    return paths;
}

/// The environment of a user of the test's own, whose folders are empty; the one before is back
/// when the object dies.
class Session {
public:
    Session()
    {
        // Not Qt's folder, which cannot remove files whose names are no text.
        std::string name = std::filesystem::temp_directory_path() / "korvel-session-XXXXXX";
        folder = mkdtemp(name.data());
        set("HOME", home());
        set("XDG_CONFIG_HOME", home() / "config");
        set("XDG_CONFIG_DIRS", root() / "system/config");
        set("XDG_DATA_HOME", home() / "data");
        set("XDG_DATA_DIRS", root() / "system/data");
        set("PATH", programs().native() + ":/usr/bin:/bin");
        std::filesystem::create_directories(home());
        std::filesystem::create_directories(programs());
    }
    ~Session()
    {
        for (const auto& [name, value] : before)
            value.isNull() ? qunsetenv(name.c_str()) : qputenv(name.c_str(), value);
        std::error_code error;
        std::filesystem::remove_all(folder, error);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] Path root() const { return folder; }
    [[nodiscard]] Path home() const { return root() / "home"; }
    /// A folder on the PATH.
    [[nodiscard]] Path programs() const { return root() / "programs"; }
    [[nodiscard]] Path autostart() const { return home() / "config/autostart"; }
    [[nodiscard]] Path applications() const { return home() / "data/applications"; }
    [[nodiscard]] Path systemAutostart() const { return root() / "system/config/autostart"; }
    [[nodiscard]] Path systemApplications() const { return root() / "system/data/applications"; }

    void set(const char* name, const std::string& value)
    {
        before.try_emplace(name, qgetenv(name));
        qputenv(name, QByteArray::fromStdString(value));
    }
    void unset(const char* name)
    {
        before.try_emplace(name, qgetenv(name));
        qunsetenv(name);
    }

    /// Makes a program that does what the script says.
    /// @param name  file name or path below programs()
    /// @return  its path
    std::string addProgram(const std::string& name, const std::string& script = "") const
    {
        const Path program = programs() / name;
        writeFile(program, "#!/bin/sh\n" + script);
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return program.native();
    }

    /// Makes an entry in the autostart folder, as another program would.
    void addEntry(const std::string& fileName, const std::string& exec,
                  const std::string& more = {}) const
    {
        writeFile(autostart() / fileName, entryText(exec, more));
    }
    /// The same for all users.
    void addSystemEntry(const std::string& fileName, const std::string& exec) const
    {
        writeFile(systemAutostart() / fileName, entryText(exec));
    }

private:
    Path folder;
    std::map<std::string, QByteArray> before;
};

}
