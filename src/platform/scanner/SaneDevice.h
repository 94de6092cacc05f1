#pragma once

#include "PageRows.h"
#include "Scanner.h"

#include <sane/sane.h>

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace hearthbook {

/// The library between its first and its last call. One at a time in the process: whoever comes
/// second waits, on the scanner's thread, until the first has gone.
class SaneSession {
public:
  SaneSession();
  ~SaneSession();
  SaneSession(const SaneSession&) = delete;
  SaneSession& operator=(const SaneSession&) = delete;

  [[nodiscard]] std::vector<ScannerDevice> devices() const;

private:
  std::unique_lock<std::mutex> alone_;
};

/// Maker and model, as far as the driver tells them; else its name.
std::string labelOf(const SANE_Device& device);

/// An open scanner. All its calls wait for the scanner, as long as that takes.
class SaneDevice {
public:
  /// What is told between two pieces of a page: how much of it is here, and whether the scanner
  /// has sent anything since. Throws to give up.
  using OnPiece = std::function<void(double share, bool hasSent)>;

  /// Throws ScanFailure.
  explicit SaneDevice(const std::string& name);
  ~SaneDevice();
  SaneDevice(const SaneDevice&) = delete;
  SaneDevice& operator=(const SaneDevice&) = delete;

  [[nodiscard]] const std::string& name() const { return name_; }

  /// Throws ScanFailure, RunTimeError where memory is short, and what `onPiece` throws.
  [[nodiscard]] ScannedPage acquire(const ScanWish& wish, const OnPiece& onPiece);

private:
  [[nodiscard]] Picture readPage(const OnPiece& onPiece) const;
  [[nodiscard]] SANE_Parameters start() const;
  void readFrame(PageRows& page, int frames, const OnPiece& onPiece) const;
  void waitForMore() const;

  std::string name_;
  SANE_Handle handle_ = nullptr;
};

} // namespace hearthbook
