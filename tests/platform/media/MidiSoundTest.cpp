#include "MidiSound.h"

#include "FileBytes.h"
#include "RunTimeError.h"
#include "ScopedVariable.h"
#include "TemporaryFolder.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

class MidiSoundTest : public testing::Test {
protected:
  [[nodiscard]] std::filesystem::path at(const char* name) const { return folder_.path() / name; }

  /// Two seconds of a low note and two of one an octave above, four times struck each.
  [[nodiscard]] std::filesystem::path lowThenHigh() const {
    constexpr std::size_t bytesOfANote = 9;
    constexpr std::size_t bytesOfTheEnd = 4;
    std::string tune = test::midiTune(8, 8);
    tune[tune.find('\xC0') + 1] = '\x4F'; // an ocarina has hardly any overtones
    const auto high = tune.end() - (4 * bytesOfANote + bytesOfTheEnd);
    std::replace(high, tune.end(), '\x45', '\x51');
    test::writeBytes(at("tune.mid"), tune);
    return at("tune.mid");
  }
  /// The next moments of a sound, of its left side.
  static std::vector<int> next(MidiSound& sound, int milliseconds) {
    std::vector<std::byte> bytes(static_cast<std::size_t>(sound.format().byteAt(milliseconds)));
    std::size_t have = 0;
    while (const std::size_t count = sound.read(bytes.data() + have, bytes.size() - have))
      have += count;
    std::vector<int> samples;
    for (std::size_t place = 0; place < have; place += 4)
      samples.push_back(
          static_cast<std::int16_t>(std::to_integer<unsigned>(bytes[place]) |
                                    std::to_integer<unsigned>(bytes[place + 1]) << 8U));
    return samples;
  }
  /// How high its note is that is struck next, in swings a second.
  static double hertz(MidiSound& sound) {
    next(sound, 100);
    const auto samples = next(sound, 300);
    const int loudest = std::ranges::max(samples);
    int swings = 0;
    bool isBelow = false;
    for (const int sample : samples) {
      if (isBelow && sample > loudest / 4)
        ++swings;
      if (sample > loudest / 4 || sample < -loudest / 4)
        isBelow = sample < 0;
    }
    return swings / 0.3;
  }

  test::TemporaryFolder folder_;
};

} // namespace

TEST_F(MidiSoundTest, BegunInItsMiddleATuneSoundsAsItDoesThere) {
  MidiSound sound(lowThenHigh());
  ASSERT_EQ(sound.length(), 4000);
  for (const auto& [from, note] : {std::pair(0, 440), std::pair(2000, 880), std::pair(3000, 880),
                                   std::pair(1000, 440), std::pair(0, 440)}) {
    sound.goTo(from);
    EXPECT_NEAR(hertz(sound), note, 20) << from;
  }
}

TEST_F(MidiSoundTest, ATuneWithBytesBehindItsTracksIsHeard) {
  const auto file = lowThenHigh();
  test::writeBytes(file, test::readBytes(file) + "left by some program");
  MidiSound sound(file);
  sound.goTo(2000);
  EXPECT_NEAR(hertz(sound), 880, 20);
}

TEST_F(MidiSoundTest, AFileFarLargerThanAnyTuneIsRefusedUnread) {
  const auto file = lowThenHigh();
  std::filesystem::resize_file(file, std::uintmax_t{1} << 40); // takes no room on the disk
  try {
    const MidiSound sound(file);
    ADD_FAILURE() << "a tune of a terabyte";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.what(), "Cannot play \"" + file.string() + "\": it is too large for a tune.");
  }
}

TEST_F(MidiSoundTest, TheFontIsLoadedOnceForAllTunesAndRounds) {
  std::filesystem::copy_file(soundFont(), at("font.sf2"));
  const test::ScopedVariable font("HEARTHBOOK_SOUNDFONT", at("font.sf2").string());
  {
    MidiSound sound(lowThenHigh());
    sound.goTo(0);
    test::writeBytes(at("font.sf2"), "no font any more");
    EXPECT_NO_THROW(sound.goTo(1000)) << "the next round";
  }
  MidiSound other(lowThenHigh());
  ASSERT_NO_THROW(other.goTo(0));
  EXPECT_NEAR(hertz(other), 440, 20);
}

} // namespace hearthbook
