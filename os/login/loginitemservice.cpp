#include "os/login/loginitemservice.h"

#include "os/login/autostartfolder.h"
#include "os/login/listedurls.h"
#include "os/login/loginitemfile.h"

#include <algorithm>
#include <cerrno>

using osUtils::Login::AutostartFile;
using osUtils::Login::AutostartFolder;

namespace {

/// Opens the folder and lists its entries; without a folder there are none.
OSStatus openAndList(AutostartFolder& folder, std::vector<AutostartFile>& files)
{
    OSStatus status = folder.open();
    if (status == LoginItemStatus::success)
        status = folder.list(files);
    return status == ENOENT ? LoginItemStatus::success : status;
}

LoginItemUrlRef urlOf(const AutostartFolder& folder, const AutostartFile& file)
{
    return osUtils::Login::listedUrl(folder.path() + '/' + file.name, file.entry.program);
}

}

OSStatus LIAECopyLoginItems(LoginItemArrayRef& items)
{
    items.reset();
    AutostartFolder folder;
    std::vector<AutostartFile> files;
    const OSStatus status = openAndList(folder, files);
    if (status != LoginItemStatus::success)
        return status;

    auto listed = std::make_unique<LoginItemArray>();
    for (const AutostartFile& file : files)
        listed->push_back({urlOf(folder, file), file.entry.hidden});
    items = std::move(listed);
    return status;
}

OSStatus LIAEAddRefAtEnd(const LoginItemFile& file, bool hidden)
{
    if (!file.isStillThere())
        return LoginItemStatus::fileNotFound;
    AutostartFolder folder;
    const OSStatus status = folder.openOrCreate();
    if (status != LoginItemStatus::success)
        return status;
    return folder.add({file.path(), hidden, std::nullopt});
}

OSStatus LIAEAddURLAtEnd(const LoginItemUrlRef& url, bool hidden)
{
    const auto file = url ? LoginItemFile::fromUrl(*url) : std::nullopt;
    return file ? LIAEAddRefAtEnd(*file, hidden) : LoginItemStatus::fileNotFound;
}

OSStatus LIAERemove(int index)
{
    AutostartFolder folder;
    std::vector<AutostartFile> files;
    const OSStatus status = openAndList(folder, files);
    if (status != LoginItemStatus::success)
        return status;
    if (index < 0 || static_cast<size_t>(index) >= files.size())
        return EINVAL;
    return folder.remove(files[static_cast<size_t>(index)].name);
}

OSStatus osUtils::Login::removeListedItem(const LoginItemUrlRef& url)
{
    AutostartFolder folder;
    std::vector<AutostartFile> files;
    const OSStatus status = openAndList(folder, files);
    if (status != LoginItemStatus::success)
        return status;
    const auto found = std::find_if(files.begin(), files.end(), [&](const AutostartFile& file) {
        return urlOf(folder, file) == url;
    });
    return found == files.end() ? ENOENT : folder.remove(found->name);
}
