#include "CountingSound.h"
#include "Playback.h"
#include "Recording.h"
#include "SoundDaemon.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <future>
#include <iostream>

// How long it goes on is told by HEARTHBOOK_SOAK_SECONDS; docs/performance.md holds what came of
// ten minutes.

namespace hearthbook {

namespace {

constexpr std::int64_t moments = test::CountingSound::countingFormat.rate;

std::int64_t soakSeconds() {
  const char* seconds = std::getenv("HEARTHBOOK_SOAK_SECONDS");
  return seconds ? std::strtoll(seconds, nullptr, 10) : 3;
}

} // namespace

TEST(RecordingSoak, NoMomentOfWhatIsPlayedIsMissingInWhatIsRecorded) {
  const test::SoundDaemon daemon(test::CountingSound::countingFormat);
  const std::int64_t seconds = soakSeconds();
  RecordedSound recorded;
  std::promise<std::string> ended;
  {
    Recording recording(test::CountingSound::countingFormat, recorded, std::int64_t{1} << 40,
                        [](const std::string& why) { ADD_FAILURE() << why; });
    while (recorded.size() == 0)
      std::this_thread::yield();
    const Playback playback(std::make_shared<test::CountingSound>(seconds * 1000), 0,
                            {[&] { ended.set_value(""); },
                             [](const std::string& why) { ADD_FAILURE() << why; },
                             [&](const std::string& why) { ended.set_value(why); }});
    EXPECT_EQ(ended.get_future().get(), "");
    for (const auto before = recorded.size(); recorded.size() < before + moments;)
      std::this_thread::yield(); // the last of it is on its way
    EXPECT_EQ(recording.lost(), 0);
  }
  const test::Counted counted = test::count(recorded);
  std::cout << seconds << " s played: " << counted.heard << " moments recorded, " << counted.missing
            << " missing, " << counted.silent << " silent in between\n";
  EXPECT_EQ(counted.heard, seconds * moments);
  EXPECT_EQ(counted.missing, 0);
}

} // namespace hearthbook
