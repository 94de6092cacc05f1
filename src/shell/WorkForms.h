#pragma once

namespace hearthbook {

/// Unloads every loaded form but the frame and the start screen, in the order of loading.
/// False where a form refused: the command that wanted it is then to stop.
bool closeWorkForms();

/// The same, topmost first, as the end of the program wants it.
bool closeWorkFormsTopmostFirst();

} // namespace hearthbook
