#include "WaveFile.h"
#include "RunTimeError.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <sstream>

namespace hearthbook {

namespace {

using Sample = SoundFormat::Sample;

WaveInfo infoOf(const std::string& bytes) {
  std::istringstream file(bytes);
  return readWaveInfo(file);
}

/// Why the bytes are refused; empty if they are not.
std::string refusal(const std::string& bytes) {
  try {
    infoOf(bytes);
    return {};
  } catch (const RunTimeError& failure) {
    return failure.what();
  }
}

std::string withBytes(std::string text, std::size_t place, const std::string& bytes) {
  return text.replace(place, bytes.size(), bytes);
}

} // namespace

TEST(WaveFile, WhatIsWrittenIsReadBack) {
  for (const Sample sample : {Sample::U8, Sample::S16, Sample::S24, Sample::S32, Sample::Float32,
                              Sample::ALaw, Sample::MuLaw}) {
    const SoundFormat format{sample, 2, 22050};
    const WaveInfo info = infoOf(test::silentWave(format, 500));
    EXPECT_EQ(info.format, format);
    EXPECT_EQ(info.length(), 500);
  }
}

TEST(WaveFile, ASecondOfTheTemplatesHasTheBytesOfItsRate) {
  EXPECT_EQ(test::lowQuality.bytesPerSecond(), 11025);
  EXPECT_EQ(test::highQuality.bytesPerSecond(), 88200);
  EXPECT_EQ(test::silentWave(test::lowQuality, 1000).size(), 44U + 11025U);
}

TEST(WaveFile, TheLengthIsExact) {
  const SoundFormat format = test::highQuality;
  for (const std::int64_t frames : {0, 1, 22, 23, 22049, 22050, 22051, 158'760'000}) {
    const WaveInfo info{format, 44, frames * 4};
    EXPECT_EQ(info.length(), frames * 1000 / 22050) << frames;
  }
}

TEST(WaveFile, AWaveOfTwoHoursHasItsLength) {
  const WaveInfo info{test::highQuality, 44, 7200 * test::highQuality.bytesPerSecond()};
  EXPECT_EQ(info.length(), 7'200'000);
}

TEST(WaveFile, ChunksThatAreNotKnownAreSteppedOver) {
  const std::string wave = test::silentWave(test::lowQuality, 200);
  const std::string odd = std::string("LIST\3\0\0\0abc\0", 12);
  const WaveInfo info = infoOf(wave.substr(0, 12) + odd + wave.substr(12));
  EXPECT_EQ(info.dataStart, 44 + 12);
  EXPECT_EQ(info.length(), 200);
}

TEST(WaveFile, SilenceIntoWhichAWrongSizeLeadsIsNotWalkedThrough) {
  const std::string wave = test::silentWave(test::highQuality, 100);
  const auto withSilence = [&](int emptyChunks) {
    const auto bytes = static_cast<std::size_t>(emptyChunks) * 8;
    return wave.substr(0, 36) + std::string(bytes, '\0') + wave.substr(36);
  };
  EXPECT_EQ(refusal(withSilence(500)), "");
  EXPECT_EQ(refusal(withSilence(5000)), "there is no sound in it");
}

TEST(WaveFile, OfAFileThatIsCutOffWhatIsThereCounts) {
  const std::string wave = test::silentWave(test::highQuality, 1000);
  EXPECT_EQ(infoOf(wave.substr(0, 44 + 44'100 + 3)).dataBytes, 44'100);
  EXPECT_EQ(infoOf(wave.substr(0, 44)).length(), 0);
}

TEST(WaveFile, AFileOfNoBytesIsRefused) { EXPECT_EQ(refusal({}), "it is no wave"); }

TEST(WaveFile, AHeadThatIsCutOffIsRefusedWhereverItIsCut) {
  const std::string wave = test::silentWave(test::lowQuality, 100);
  for (std::size_t bytes = 0; bytes < 44; ++bytes)
    EXPECT_NE(refusal(wave.substr(0, bytes)), "") << bytes;
}

TEST(WaveFile, AWrongHeadIsRefused) {
  const std::string wave = test::silentWave(test::lowQuality, 100);
  EXPECT_EQ(refusal(withBytes(wave, 0, "RIFX")), "it is no wave");
  EXPECT_EQ(refusal(withBytes(wave, 8, "AVI ")), "it is no wave");
  EXPECT_EQ(refusal(withBytes(wave, 12, "junk")), "there is no sound in it");
  const std::string none(4, '\0');
  EXPECT_EQ(refusal(withBytes(wave, 22, none.substr(0, 2))), "its head is damaged") << "channels";
  EXPECT_EQ(refusal(withBytes(wave, 24, none)), "its head is damaged") << "rate";
  EXPECT_EQ(refusal(withBytes(wave, 24, "\xFF\xFF\xFF\xFF")), "its head is damaged") << "rate";
  EXPECT_EQ(refusal(withBytes(wave, 32, none.substr(0, 2))), "its head is damaged") << "frame";
}

TEST(WaveFile, OfSoundThatIsPackedTheWayIsToldByItsNumber) {
  const std::string wave = test::silentWave(test::lowQuality, 100);
  const WaveInfo packed = infoOf(withBytes(wave, 20, std::string("\x02\0", 2)));
  EXPECT_EQ(packed.packing, 2U);
  EXPECT_EQ(packed.dataStart, 44);
  EXPECT_EQ(infoOf(withBytes(wave, 34, std::string("\x0C\0", 2))).packing, 1U) << "12 bits";
  EXPECT_EQ(infoOf(wave).packing, std::nullopt);
}

TEST(WaveFile, AHeadOfTheLongFormTellsTheFormatFurtherBehind) {
  const std::string wave = test::silentWave(test::highQuality, 100);
  std::string head = wave.substr(20, 16);
  head.replace(0, 2, "\xFE\xFF");
  head += std::string("\x16\0\x10\0\3\0\0\0", 8) + std::string("\1\0", 2) + std::string(14, '\0');
  const WaveInfo info =
      infoOf(wave.substr(0, 16) + std::string("\x28\0\0\0", 4) + head + wave.substr(36));
  EXPECT_EQ(info.format, test::highQuality);
  EXPECT_EQ(info.length(), 100);
}

} // namespace hearthbook
