#pragma once

#include "Twips.h"

#include <optional>

namespace hearthbook {

/// The size of the start screen in a frame of that size; nothing where the frame is too small
/// for it, which leaves the start screen as it is.
constexpr std::optional<TwipsSize> startupSize(TwipsSize frame) {
  if (frame.height <= 1500 || frame.width <= 1000)
    return std::nullopt;
  return TwipsSize{frame.width - 1000, frame.height - 1500};
}

} // namespace hearthbook
