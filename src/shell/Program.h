#pragma once

#include "ApplicationFolder.h"
#include "FrameCommands.h"

namespace hearthbook {

/// The program from its first step to its last, on one album folder. Returns the process's
/// exit code: 0 after an orderly end, 1 where the start failed.
int runHearthbook(const ApplicationFolder& folder, const ShellServices& services);

/// The album folder of this program file. Tells the user and gives nothing where there is none.
std::optional<ApplicationFolder> findApplicationFolder(const std::filesystem::path& programFile,
                                                       const std::filesystem::path& userFolder);

} // namespace hearthbook
