#pragma once

#include "ScopedVariable.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace hearthbook::test {

/// The desktop's printing service, a real one for one test, on 127.0.0.1. The one of this machine
/// is not touched.
///
/// Its printers make PDFs. What prints them runs as root only and writes into a folder of the
/// system: there the pages of one test are known by the title of their job, and taken away.
class CupsDaemon {
public:
  CupsDaemon();
  ~CupsDaemon();
  CupsDaemon(const CupsDaemon&) = delete;
  CupsDaemon& operator=(const CupsDaemon&) = delete;

  /// Why it cannot be had on this machine; empty where it can.
  static std::string whyNot();

  void addPrinter(const std::string& name);
  void setPaper(const std::string& name, const std::string& paper); ///< its own, as "A5"
  void makeCurrent(const std::string& name);
  /// "Printer/set": choices of the user's own for a printer, as his desktop keeps them; they are
  /// his current printer then. Each as "name=value".
  void keepChoices(const std::string& name, const std::string& choices);
  void takePrinterAway(const std::string& name);
  void refuseJobs(const std::string& name); ///< the printer is there and takes none
  void kill();

  /// A title of which there is no second one on this machine.
  [[nodiscard]] std::string uniqueTitle() const;
  /// What the job of that title has printed, as soon as it is all there; empty until then.
  [[nodiscard]] std::filesystem::path printed(const std::string& title) const;
  /// A line for each job: printer, user, pages, title, paper, sides, quality and priority.
  [[nodiscard]] std::string pageLog() const;

private:
  void writeSettings() const;
  void waitUntilItListens() const;
  void administer(std::vector<std::string> command) const;
  [[nodiscard]] std::filesystem::path at(const char* name) const { return folder_.path() / name; }

  TemporaryFolder folder_;
  int port_;
  ScopedVariable server_;
  ScopedVariable user_;
  ScopedVariable home_; ///< there the user's choices lie
  pid_t process_ = 0;
};

/// A machine on which no printing service runs.
class NoCupsDaemon {
public:
  NoCupsDaemon() : server_("CUPS_SERVER", "/nowhere/cups.sock") {}

private:
  ScopedVariable server_;
};

} // namespace hearthbook::test
