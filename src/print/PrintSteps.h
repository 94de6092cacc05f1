#pragma once

#include "PrintPage.h"

#include <cstddef>
#include <optional>

namespace hearthbook {

/// What is done of a page that is being printed.
enum class PrintStep {
  Begun,        ///< the printer's settings are made
  PictureReady, ///< one more of the sheet's pictures has its pixels
  Painted,
  Delivered,
};

/// How far the progress bar goes for a page.
int printSteps(const PrintPage& page);

/// Where the bar stands after a step; nothing where it stays. `pictures` of the sheet are ready.
std::optional<int> printStepValue(const PrintPage& page, PrintStep step, std::size_t pictures);

} // namespace hearthbook
