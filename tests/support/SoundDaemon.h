#pragma once

#include "ScopedVariable.h"
#include "SoundFormat.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <sys/types.h>

namespace hearthbook::test {

/// The desktop's sound service, a real one for one test: a loudspeaker that nobody hears, and a
/// microphone that hears what it plays. The one of this machine is not touched.
class SoundDaemon {
public:
  /// The loudspeaker's own format: what is played and recorded in it passes unchanged.
  explicit SoundDaemon(const SoundFormat& device = {SoundFormat::Sample::S16, 2, 44100});
  ~SoundDaemon();
  SoundDaemon(const SoundDaemon&) = delete;
  SoundDaemon& operator=(const SoundDaemon&) = delete;

  void kill();           ///< it is gone from one moment to the next
  void freeze();         ///< it is there and does not answer
  void takeDeviceAway(); ///< loudspeaker and microphone are unplugged; the service stays

private:
  void start(const SoundFormat& device);
  void waitUntilItListens() const;
  [[nodiscard]] std::filesystem::path socket() const { return folder_.path() / "native"; }

  TemporaryFolder folder_;
  ScopedVariable server_;
  ScopedVariable cookie_;
  pid_t process_ = 0;
};

/// Sound for a machine that has none.
class NoSoundDaemon {
public:
  NoSoundDaemon() : server_("PULSE_SERVER", "unix:/nowhere/native") {}

private:
  ScopedVariable server_;
};

} // namespace hearthbook::test
