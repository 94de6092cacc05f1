#include "Recording.h"
#include "RecordedSound.h"
#include "SoundDaemon.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <future>
#include <new>
#include <string>

namespace hearthbook {

namespace {

class FullMemory : public RecordedSound {
public:
  void append(const std::byte* /*bytes*/, std::size_t /*count*/) override {
    throw std::bad_alloc();
  }
};

} // namespace

TEST(Recording, MemoryThatRunsOutIsToldInPlainWords) {
  const test::SoundDaemon daemon;
  FullMemory memory;
  std::promise<std::string> told;
  const Recording recording(test::highQuality, memory, std::int64_t{1} << 30,
                            [&](const std::string& why) { told.set_value(why); });
  EXPECT_EQ(told.get_future().get(), "The computer has no memory left for a longer recording.");
}

} // namespace hearthbook
