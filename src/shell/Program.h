#pragma once

#include "EarlyStart.h"
#include "FrameCommands.h"

namespace hearthbook {

/// The program from what was begun early to its last step. Returns the process's exit code: 0
/// after an orderly end, 1 where the start failed.
int runHearthbook(EarlyStart& early, const ShellServices& services);

} // namespace hearthbook
