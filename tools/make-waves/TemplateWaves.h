#pragma once

#include "ApplicationFolder.h"

namespace hearthbook {

/// Writes the two waves without a sound in which every recording begins: it takes their format.
void makeTemplateWaves(const ApplicationFolder& folder);

} // namespace hearthbook
