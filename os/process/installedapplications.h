#pragma once

#include "os/process/applicationentry.h"

#include <vector>

namespace osUtils::Process {

/// The applications that have a desktop entry in one of the data directories, read anew at each
/// call. Of several entries with one id only that of the first directory counts, and an entry that
/// is marked as deleted there hides the others.
[[nodiscard]] std::vector<ApplicationEntry> installedApplications();

}
