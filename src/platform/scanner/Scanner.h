#pragma once

#include "Picture.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace hearthbook {

/// How an acquisition ended. Only success is 0.
enum class ScanStatus {
  Success = 0,
  Cancelled,
  NoScanner,  ///< none is found, or not the one that was asked for
  CannotOpen, ///< it is there and refuses: busy, no rights, gone meanwhile
  NoPaper,    ///< the feeder is empty
  Jammed,     ///< the paper is stuck
  CoverOpen,
  NotAnswering, ///< nothing was heard of it for too long
  NoMemory,     ///< the page is larger than what is left
  Failed        ///< anything else, in the middle of a page too
};

struct ScannerDevice {
  std::string name;  ///< what a wish asks for by
  std::string label; ///< what a user knows it by: maker and model
};

/// What the next page is to be like, in colour. What a scanner cannot do it does as nearly as it
/// can.
struct ScanWish {
  std::string device; ///< empty: the one used last, else the first that is found
  int dotsPerInch = 300;
  /// Further settings by the names that the scanner's driver gives them. No family knows those: by
  /// them tests make a scanner slow, odd or broken.
  std::map<std::string, std::string> settings;
};

struct ScannedPage {
  ScanStatus status = ScanStatus::Failed;
  std::string trouble; ///< what went wrong, in words; empty at success
  Picture picture;     ///< the whole page; none unless it succeeded
  int dotsPerInch = 0; ///< what came of the wish for it; 0 where the scanner does not tell
};

/// A scanner on the desk or in the network. Every call returns at once; the answers come on the
/// thread of the one who asked, and none any more once the scanner object has gone.
class Scanner {
public:
  using Found = std::function<void(const std::vector<ScannerDevice>&)>;
  /// How much of the page is here, 0 to 1; never for pages of unknown length.
  using Progress = std::function<void(double)>;
  using Ended = std::function<void(const ScannedPage&)>;

  Scanner() = default;
  virtual ~Scanner() = default;
  Scanner(const Scanner&) = delete;
  Scanner& operator=(const Scanner&) = delete;

  /// Looks for scanners, which may take seconds.
  virtual void findDevices(Found found) = 0;
  /// Takes one page. `ended` is called exactly once for each; a second page waits for the first.
  virtual void acquire(const ScanWish& wish, Progress progress, Ended ended) = 0;
  /// Gives up the pages that are asked for: they end as Cancelled at once, however long the
  /// scanner takes to notice.
  virtual void cancel() = 0;
  /// No more pages are wanted for now: once those asked for have ended, the scanner in use is free
  /// for other programs, too.
  virtual void release() = 0;

  /// What was wished for last, for who asks next, without a device where it brought no page; for
  /// as long as the program runs.
  [[nodiscard]] const ScanWish& lastWish() const { return lastWish_; }
  void remember(ScanWish wish) { lastWish_ = std::move(wish); }

private:
  ScanWish lastWish_;
};

/// "The paper is stuck in the scanner."
std::string describe(ScanStatus status);

} // namespace hearthbook
