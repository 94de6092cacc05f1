#include "AudioQuality.h"
#include "TemplateWaves.h"
#include "TemporaryFolder.h"
#include "TestSounds.h"
#include "WaveFile.h"

#include <gtest/gtest.h>

#include <fstream>

namespace hearthbook {

TEST(AudioQuality, AMinuteTakes660kAtTheLowQualityAnd5160kAtTheHigh) {
  EXPECT_EQ(sizeEstimate(60'000, lowAudioQuality.sizeFactor), "660k");
  EXPECT_EQ(sizeEstimate(60'000, highAudioQuality.sizeFactor), "5160k");
}

TEST(AudioQuality, WhatIsShorterThanASecondTakesNothing) {
  EXPECT_EQ(wholeSeconds(999), 0);
  EXPECT_EQ(sizeEstimate(999, highAudioQuality.sizeFactor), "0k");
  EXPECT_EQ(sizeEstimate(1999, highAudioQuality.sizeFactor), "86k");
}

TEST(AudioQuality, TheBytesOfAMillisecondTellHowItWasRecorded) {
  EXPECT_EQ(qualityOf(88 * 10'000, 10'000), highAudioQuality);
  EXPECT_EQ(qualityOf(11 * 10'000, 10'000), lowAudioQuality);
}

TEST(AudioQuality, From86BytesOnItIsTheHighQuality) {
  EXPECT_EQ(qualityOf(86 * 1000, 999), highAudioQuality);
  EXPECT_EQ(qualityOf(86 * 1000 - 1, 999), lowAudioQuality);
}

TEST(AudioQuality, AFilesSizeIsRoundedToKilobytes) {
  EXPECT_EQ(fileSizeCaption(0), "File Size: 0k");
  EXPECT_EQ(fileSizeCaption(511), "File Size: 0k");
  EXPECT_EQ(fileSizeCaption(512), "File Size: 1k");
  EXPECT_EQ(fileSizeCaption(20'480), "File Size: 20k");
}

TEST(TemplateWaves, BothAreThereInTheirFormatWithoutASound) {
  const test::TemporaryFolder folder;
  const ApplicationFolder application(folder.path());
  makeTemplateWaves(application);
  const auto infoOf = [&](const AudioQuality& quality) {
    std::ifstream wave(application.path(quality.templateFile), std::ios::binary);
    return readWaveInfo(wave);
  };
  EXPECT_EQ(infoOf(lowAudioQuality).format, test::lowQuality);
  EXPECT_EQ(infoOf(highAudioQuality).format, test::highQuality);
  EXPECT_EQ(infoOf(lowAudioQuality).dataBytes, 0);
  EXPECT_EQ(infoOf(highAudioQuality).dataBytes, 0);
}

} // namespace hearthbook
