#pragma once

#include "Scanner.h"

#include <chrono>
#include <memory>

namespace hearthbook {

/// The scanners that SANE knows, on a thread of their own: a scanner that hangs holds up neither
/// the window nor the end of the program. The library is loaded with the first question.
class SaneScanner : public Scanner {
public:
  /// Runs a piece of work on the asking thread, later and never before it returns; is called from
  /// any thread.
  using Deliver = std::function<void(std::function<void()>)>;

  /// `patience` is how long a scanner may say nothing before a page ends as NotAnswering; lamps
  /// take a minute to warm up.
  explicit SaneScanner(Deliver deliver,
                       std::chrono::milliseconds patience = std::chrono::minutes(2));
  ~SaneScanner() override;

  void findDevices(Found found) override;
  void acquire(const ScanWish& wish, Progress progress, Ended ended) override;
  void cancel() override;
  void release() override;

private:
  class Desk;
  std::shared_ptr<Desk> desk_;
};

} // namespace hearthbook
