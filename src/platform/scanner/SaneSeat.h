#pragma once

#include "SaneDevice.h"

#include <optional>
#include <string>

namespace hearthbook {

/// Who sits at the scanner: the library and the scanner in use, both opened when they are needed
/// and kept for the next page of the same scanner, until one leaves. All of it on one thread.
class SaneSeat {
public:
  /// None where the library is not installed.
  std::vector<ScannerDevice> devices();
  /// What went wrong stands in the page. The scanner is opened anew for the page behind that.
  ScannedPage acquire(const ScanWish& wish, const SaneDevice::OnPiece& onPiece);
  void leave(); ///< closes both

private:
  ScannedPage tryToAcquire(const ScanWish& wish, const SaneDevice::OnPiece& onPiece);
  SaneSession& newSession();
  SaneDevice& open(const std::string& wished);

  std::optional<SaneSession> session_;
  std::optional<SaneDevice> device_;
};

} // namespace hearthbook
