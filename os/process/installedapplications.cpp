#include "os/process/installedapplications.h"

#include "os/desktopentry/applications.h"
#include "os/desktopentry/desktopentry.h"

namespace osUtils::Process {

std::vector<ApplicationEntry> installedApplications()
{
    std::vector<ApplicationEntry> applications;
    for (const ApplicationFile& file : applicationFiles()) {
        const auto entry = DesktopEntry::read(file.path);
        if (entry && entry->isApplication())
            applications.push_back({file.id, entry->name(), entry->value("StartupWMClass")});
    }
    return applications;
}

}
