#include "FileBytes.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"
#include "TestSounds.h"
#include "WaveFile.h"
#include "WaveSound.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace hearthbook {

namespace {

class PackedWaveTest : public testing::Test {
protected:
  [[nodiscard]] std::filesystem::path at(const std::string& name) const {
    return folder_.path() / name;
  }
  /// Two seconds of a low tone and one of a higher one.
  [[nodiscard]] std::filesystem::path lowThenHigh(const char* packing) const {
    test::writePackedTones(at("packed.wav"), packing, {{440, 2000}, {880, 1000}});
    return at("packed.wav");
  }
  /// All moments from a position on, of the left side.
  static std::vector<short> samplesFrom(WaveSound& sound, std::int64_t position) {
    sound.goTo(position);
    std::vector<short> samples;
    std::vector<short> piece(1000 * static_cast<std::size_t>(sound.format().channels));
    while (const std::size_t count =
               sound.read(reinterpret_cast<std::byte*>(piece.data()), 2 * piece.size()))
      for (std::size_t index = 0; index < count / 2;
           index += static_cast<std::size_t>(sound.format().channels))
        samples.push_back(piece[index]);
    return samples;
  }
  /// How high the tone is in the fifth of a second behind a position.
  static double hertzAt(WaveSound& sound, std::int64_t position) {
    const auto samples = samplesFrom(sound, position);
    const auto fifth = static_cast<std::size_t>(sound.format().rate / 5);
    int swings = 0;
    for (std::size_t index = 1; index < std::min(fifth, samples.size()); ++index)
      swings += samples[index - 1] < 0 && samples[index] >= 0 ? 1 : 0;
    return swings * 5;
  }
  static std::string refusal(const std::filesystem::path& file) {
    try {
      const WaveSound sound(file);
      return {};
    } catch (const RunTimeError& failure) {
      return failure.what();
    }
  }

  test::TemporaryFolder folder_;
};

constexpr auto packings = {"ms-adpcm", "ima-adpcm", "gsm-full-rate", "mp3"};

} // namespace

TEST_F(PackedWaveTest, PackedSoundIsHeardFromAnyPlaceAndTellsHowLongItIs) {
  for (const char* packing : packings) {
    WaveSound sound(lowThenHigh(packing));
    EXPECT_NEAR(static_cast<double>(sound.length()), 3000, 100) << packing;
    for (const auto& [from, hertz] :
         {std::pair(0, 440), std::pair(2500, 880), std::pair(1500, 440), std::pair(2500, 880)})
      EXPECT_NEAR(hertzAt(sound, from), hertz, 15) << packing << " from " << from;
  }
}

TEST_F(PackedWaveTest, AllOfItIsReadInPiecesOfAnySize) {
  for (const char* packing : packings) {
    WaveSound sound(lowThenHigh(packing));
    const auto moments = static_cast<std::int64_t>(samplesFrom(sound, 0).size());
    EXPECT_EQ(moments * 1000 / sound.format().rate, sound.length()) << packing;
  }
}

TEST_F(PackedWaveTest, ItIsSavedAsItIs) {
  const auto file = lowThenHigh("ms-adpcm");
  WaveSound sound(file);
  sound.save(at("copy.wav"), {});
  EXPECT_EQ(test::readBytes(at("copy.wav")), test::readBytes(file));
}

TEST_F(PackedWaveTest, WhatIsRecordedBehindItIsSavedWithIt) {
  WaveSound sound(lowThenHigh("ima-adpcm"));
  const auto length = sound.length();
  const std::vector<std::byte> second(static_cast<std::size_t>(sound.format().bytesPerSecond()));
  sound.recorded().append(second.data(), second.size());
  sound.save(at("more.wav"), {});
  WaveSound more(at("more.wav"));
  EXPECT_EQ(more.length(), length + 1000);
  EXPECT_NEAR(hertzAt(more, 2500), 880, 15);
}

TEST_F(PackedWaveTest, APackedFileThatIsCutOffSoundsAsFarAsItGoes) {
  for (const char* packing : packings) {
    const auto file = lowThenHigh(packing);
    const std::string bytes = test::readBytes(file);
    test::writeBytes(file, bytes.substr(0, bytes.size() / 2));
    WaveSound sound(file);
    EXPECT_NEAR(hertzAt(sound, 500), 440, 15) << packing;
    EXPECT_GT(samplesFrom(sound, 0).size(), static_cast<std::size_t>(sound.format().rate));
  }
}

TEST_F(PackedWaveTest, PackedGarbageDoesNoHarm) {
  for (const char* packing : packings) {
    const auto file = lowThenHigh(packing);
    std::string bytes = test::readBytes(file);
    for (std::size_t place = 100; place < bytes.size(); place += 7)
      bytes[place] = static_cast<char>(place * 31);
    test::writeBytes(file, bytes);
    if (refusal(file).empty()) {
      WaveSound sound(file);
      samplesFrom(sound, 0);
    }
  }
}

TEST_F(PackedWaveTest, APackingThatNobodyKnowsIsToldByItsNumber) {
  std::string wave = test::silentWave(test::lowQuality, 100);
  wave.replace(20, 2, "\x61\x01");
  test::writeBytes(at("odd.wav"), wave);
  EXPECT_EQ(refusal(at("odd.wav")), "Cannot play \"" + at("odd.wav").string() +
                                        "\": its sound is packed in a way that is not known here "
                                        "(353).");
}

} // namespace hearthbook
