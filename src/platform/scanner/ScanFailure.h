#pragma once

#include "RunTimeError.h"
#include "Scanner.h"

#include <string>

namespace hearthbook {

/// Why a page did not come.
class ScanFailure : public RunTimeError {
public:
  explicit ScanFailure(ScanStatus status, const std::string& details = {})
      : RunTimeError(sentence(describe(status), details)), status_(status) {}

  [[nodiscard]] ScanStatus status() const { return status_; }

private:
  static std::string sentence(std::string words, const std::string& details) {
    if (details.empty())
      return words;
    words.pop_back(); // the full stop
    return words + " (" + details + ").";
  }

  ScanStatus status_;
};

} // namespace hearthbook
