#pragma once

#include <exception>

namespace hearthbook {

/// Runs a step that may fail without stopping the steps behind it.
template <class Step> void passOver(Step step) {
  try {
    step();
  } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): this is the one place
  }
}

} // namespace hearthbook
