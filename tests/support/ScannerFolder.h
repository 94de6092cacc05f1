#pragma once

#include "TemporaryFolder.h"

#include <map>
#include <string>

#include <sys/types.h>

namespace hearthbook::test {

/// The scanners of this machine as one test wants them. SANE keeps where it has found its settings
/// once, so all tests of a process use one folder and write it anew.
class ScannerFolder {
public:
  using Settings = std::map<std::string, std::string>;

  ScannerFolder(); ///< no scanner

  /// SANE's own test scanner, `test:0`, whose page is a pattern in colour; `settings` go into its
  /// configuration.
  void useTestScanner(const Settings& settings = {});
  /// The scanners that a machine of the network offers.
  void useNetwork(const std::string& address);
};

/// An address on which no other test serves: of this machine, by the process's number.
std::string ownLoopbackAddress();

/// `saned`, which offers the test scanner on that address.
class ScannerService {
public:
  explicit ScannerService(const std::string& address);
  ~ScannerService();
  ScannerService(const ScannerService&) = delete;
  ScannerService& operator=(const ScannerService&) = delete;

private:
  TemporaryFolder folder_;
  pid_t process_ = 0;
};

/// A machine of the network that takes every call and never says a word, while it lives.
class SilentService {
public:
  explicit SilentService(const std::string& address);
  ~SilentService();
  SilentService(const SilentService&) = delete;
  SilentService& operator=(const SilentService&) = delete;

  void waitForCall(); ///< until somebody waits for an answer

private:
  int socket_;
  int call_ = -1;
};

} // namespace hearthbook::test
