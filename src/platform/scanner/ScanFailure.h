#pragma once

#include "RunTimeError.h"
#include "Scanner.h"

namespace hearthbook {

/// Why a page did not come.
class ScanFailure : public RunTimeError {
public:
  explicit ScanFailure(ScanStatus status, const std::string& details = {})
      : RunTimeError(describe(status) + (details.empty() ? "" : " (" + details + ")")),
        status_(status) {}

  [[nodiscard]] ScanStatus status() const { return status_; }

private:
  ScanStatus status_;
};

} // namespace hearthbook
