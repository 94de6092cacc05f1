#pragma once

#include "PrintChoices.h"
#include "PrintPage.h"
#include "PrintText.h"

#include <optional>
#include <string>

namespace hearthbook {

/// What of the page will be missing on paper, and which choice would print all of it, in a few
/// words; empty where nothing is. `own` is the printer's own paper, upright.
std::string printNote(const PrintPage& page, const PrintChoices& choices,
                      const std::optional<TwipsSize>& own, const PrintType& type);

} // namespace hearthbook
