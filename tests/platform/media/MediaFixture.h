#pragma once

#include "FileBytes.h"
#include "MMControl.h"
#include "QtPrint.h"
#include "RecordedSound.h"
#include "Recording.h"
#include "SoundDaemon.h"
#include "TemporaryFolder.h"
#include "TestSounds.h"
#include "Text.h"
#include "WaitFor.h"
#include "WaveFile.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>

namespace hearthbook::test {

/// A control with a folder of sounds, and what it told.
class MediaFixture : public testing::Test {
protected:
  [[nodiscard]] std::filesystem::path at(const std::string& name) const {
    return folder_.path() / name;
  }
  std::filesystem::path tone(const std::string& name, int hertz, std::int64_t milliseconds,
                             const SoundFormat& format = highQuality) {
    writeTone(at(name), hertz, milliseconds, format);
    return at(name);
  }
  /// An empty wave, as recordings begin with one.
  std::filesystem::path emptyWave(const SoundFormat& format) {
    writeBytes(at("empty.wav"), silentWave(format, 0));
    return at("empty.wav");
  }
  void open(const std::filesystem::path& file) {
    player_.setFile(file);
    ASSERT_TRUE(player_.Open()) << toUtf8(player_.errorText());
  }
  /// Opens a disc, and waits for its drive.
  testing::AssertionResult openDisc() {
    const auto failures = failed_.size();
    if (!player_.Open())
      return testing::AssertionFailure() << toUtf8(player_.errorText());
    const auto answered = waitFor([&] { return player_.isOpen() || failed_.size() > failures; });
    if (answered && player_.isOpen())
      return testing::AssertionSuccess();
    return testing::AssertionFailure() << toUtf8(player_.errorText());
  }
  static WaveInfo infoOf(const std::filesystem::path& wave) {
    std::ifstream file(wave, std::ios::binary);
    return readWaveInfo(file);
  }
  [[nodiscard]] std::string refusal(const std::filesystem::path& file) {
    player_.setFile(file);
    return player_.Open() ? std::string() : toUtf8(player_.errorText());
  }

  testing::AssertionResult waitUntilDone(int times = 1) {
    return waitFor([&] { return done_.size() >= times; });
  }
  testing::AssertionResult waitUntilPosition(std::int64_t position) {
    return waitFor([&] { return player_.position() >= position; });
  }
  [[nodiscard]] std::string lastFailure() const {
    return failed_.isEmpty() ? std::string() : toUtf8(failed_.last().first().toString());
  }

  TemporaryFolder folder_;
  MMControl player_;
  QSignalSpy done_{&player_, &MMControl::done};
  QSignalSpy failed_{&player_, &MMControl::failed};
  QSignalSpy modes_{&player_, &MMControl::modeChanged};
  QSignalSpy ticks_{&player_, &MMControl::statusUpdate};
};

/// A file whose reader is kept waiting until it is let go, as a slow drive does; then it holds
/// nothing.
class SlowFile {
public:
  explicit SlowFile(std::filesystem::path name) : name_(std::move(name)) {
    EXPECT_EQ(::mkfifo(name_.c_str(), 0600), 0);
  }
  /// Lets a reader go that waits now; whether there was one.
  [[nodiscard]] bool letGo() const {
    const int end = ::open(name_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (end >= 0)
      ::close(end);
    return end >= 0;
  }
  [[nodiscard]] const std::filesystem::path& name() const { return name_; }

private:
  std::filesystem::path name_;
};

inline std::ptrdiff_t threadsOfThisProgram() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// Hears what is played, and keeps it as a wave that can be measured.
class Listener {
public:
  explicit Listener(std::filesystem::path file)
      : file_(std::move(file)),
        recording_(std::make_unique<Recording>(highQuality, sound_, std::int64_t{1} << 30,
                                               [](const std::string&) {})) {
    EXPECT_TRUE(waitFor([this] { return sound_.size() > 0; }));
  }

  Heard heard() {
    recording_.reset();
    std::string bytes(static_cast<std::size_t>(sound_.size()), '\0');
    sound_.read(0, reinterpret_cast<std::byte*>(bytes.data()), bytes.size());
    std::ostringstream head;
    writeWaveHead(head, highQuality, sound_.size());
    writeBytes(file_, head.str() + bytes);
    return listenTo(file_);
  }

private:
  std::filesystem::path file_;
  RecordedSound sound_;
  std::unique_ptr<Recording> recording_;
};

} // namespace hearthbook::test
