#pragma once

#include "os/filedescriptor.h"
#include "os/login/autostartentry.h"
#include "os/login/loginitem.h"

#include <string>
#include <vector>

namespace osUtils::Login {

/// An entry with the file that holds it.
struct AutostartFile {
    std::string name;
    AutostartEntry entry;
};

/// The folder of the programs that the user's session starts. Knows files and their order; what is
/// a login item, and how it is looked for, it leaves to others.
///
/// Every state that another process can see, or that the end of this one can leave behind, is a
/// valid folder. Additions wait for each other; reading and removing need not wait.
class AutostartFolder {
public:
    AutostartFolder();

    /// Opens the folder; ENOENT where there is none.
    [[nodiscard]] OSStatus open();
    /// Opens the folder, making it if there is none.
    [[nodiscard]] OSStatus openOrCreate();

    [[nodiscard]] const std::string& path() const { return folderPath; }

    /// The entries, those without a position first, by file name, then the others by position.
    [[nodiscard]] OSStatus list(std::vector<AutostartFile>& files) const;
    /// Adds an entry behind all others.
    /// @param entry  its position does not count
    [[nodiscard]] OSStatus add(const AutostartEntry& entry) const;
    /// Removes a file of whatever origin.
    [[nodiscard]] OSStatus remove(const std::string& fileName) const;

private:
    [[nodiscard]] OSStatus fileNames(std::vector<std::string>& names) const;
    [[nodiscard]] OSStatus lockedDescriptor(FileDescriptor& descriptor) const;
    [[nodiscard]] OSStatus removeBegunFiles() const;
    [[nodiscard]] OSStatus writeAtEnd(AutostartEntry entry, std::string& name) const;
    [[nodiscard]] OSStatus sync() const;

    std::string folderPath;
    FileDescriptor folder;
};

}
