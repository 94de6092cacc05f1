#include "Playback.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace hearthbook {

namespace {

/// A sound in a drive that does not answer until it is let go.
class StuckSound : public SoundSource {
public:
  [[nodiscard]] SoundFormat format() const override { return {SoundFormat::Sample::U8, 1, 11025}; }
  [[nodiscard]] std::int64_t length() const override { return 0; }
  void goTo(std::int64_t /*position*/) override {
    std::unique_lock<std::mutex> lock(mutex_);
    ++asked_;
    most_ = std::max(most_, ++inside_);
    changed_.notify_all();
    changed_.wait_for(lock, patience, [this] { return letGo_; });
    --inside_;
  }
  std::size_t read(std::byte* /*into*/, std::size_t /*bytes*/) override { return 0; }

  void waitUntilAsked() {
    std::unique_lock<std::mutex> lock(mutex_);
    EXPECT_TRUE(changed_.wait_for(lock, patience, [this] { return asked_ > 0; }));
  }
  void letGo() {
    const std::lock_guard<std::mutex> lock(mutex_);
    letGo_ = true;
    changed_.notify_all();
  }
  [[nodiscard]] bool isStuck() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return inside_ > 0;
  }
  [[nodiscard]] int mostAtOnce() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return most_;
  }

private:
  static constexpr auto patience = std::chrono::seconds(20);

  std::mutex mutex_;
  std::condition_variable changed_;
  int asked_ = 0;
  int inside_ = 0;
  int most_ = 0;
  bool letGo_ = false;
};

void waitUntilNobodyElseHolds(const std::shared_ptr<StuckSound>& sound) {
  while (sound.use_count() > 1)
    std::this_thread::yield();
}

/// Counts what is told.
struct Told {
  Playback::Listener listener() {
    const auto count = [this](const std::string& = {}) { ++times; };
    return {[count] { count(); }, count, count};
  }
  std::atomic<int> times = 0;
};

} // namespace

TEST(Playback, NobodyWaitsForASoundThatHangsAndNothingIsToldOfIt) {
  const auto sound = std::make_shared<StuckSound>();
  Told told;
  {
    const Playback playback(sound, 0, told.listener());
    sound->waitUntilAsked();
  }
  EXPECT_TRUE(sound->isStuck());
  sound->letGo();
  waitUntilNobodyElseHolds(sound);
  EXPECT_EQ(told.times, 0);
}

TEST(Playback, TheNextOneBeginsWhenTheSoundIsLetGo) {
  const auto sound = std::make_shared<StuckSound>();
  Told before;
  Told told;
  {
    const Playback stuck(sound, 0, before.listener());
    sound->waitUntilAsked();
  }
  const Playback playback(sound, 0, told.listener());
  EXPECT_TRUE(sound->isStuck());
  EXPECT_EQ(told.times, 0);
  sound->letGo();
  while (told.times == 0)
    std::this_thread::yield();
  EXPECT_EQ(sound->mostAtOnce(), 1);
  EXPECT_EQ(before.times, 0);
}

} // namespace hearthbook
