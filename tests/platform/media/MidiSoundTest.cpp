#include "MidiSound.h"

#include "FileBytes.h"
#include "ScopedVariable.h"
#include "TemporaryFolder.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace hearthbook {

namespace {

class MidiSoundTest : public testing::Test {
protected:
  [[nodiscard]] std::filesystem::path at(const char* name) const { return folder_.path() / name; }

  [[nodiscard]] std::filesystem::path tune() const {
    test::writeBytes(at("tune.mid"), test::midiTune(8, 8));
    return at("tune.mid");
  }

  static bool isHeard(MidiSound& sound) {
    std::vector<std::byte> bytes(4096);
    const std::size_t count = sound.read(bytes.data(), bytes.size());
    bytes.resize(count);
    return std::ranges::any_of(bytes, [](std::byte byte) { return byte != std::byte{0}; });
  }

  test::TemporaryFolder folder_;
};

} // namespace

TEST_F(MidiSoundTest, TheFontIsLoadedOnceForAllTunesAndRounds) {
  std::filesystem::copy_file(soundFont(), at("font.sf2"));
  const test::ScopedVariable font("HEARTHBOOK_SOUNDFONT", at("font.sf2").string());
  {
    MidiSound sound(tune());
    sound.goTo(0);
    test::writeBytes(at("font.sf2"), "no font any more");
    EXPECT_NO_THROW(sound.goTo(1000)) << "the next round";
  }
  MidiSound other(tune());
  ASSERT_NO_THROW(other.goTo(0));
  EXPECT_TRUE(isHeard(other));
}

} // namespace hearthbook
