#include "MediaFixture.h"

#include <QTimer>

namespace hearthbook {

namespace {

using Mode = MMControl::Mode;

/// On a machine without sound: the time is counted all the same.
class MMControlTest : public test::MediaFixture {
protected:
  std::filesystem::path silence(const std::string& name, std::int64_t milliseconds) {
    test::writeBytes(at(name), test::silentWave(test::highQuality, milliseconds));
    return at(name);
  }
  /// The playing thread hears of a pause when its turn comes; from then on nothing moves.
  testing::AssertionResult waitUntilItStandsStill() {
    constexpr int looks = 10;
    auto last = player_.position();
    int same = 0;
    return test::waitFor([&] {
      same = player_.position() == last ? same + 1 : 0;
      last = player_.position();
      return same == looks;
    });
  }
  /// Until another timer of the interval, begun now, has run out a few times.
  static testing::AssertionResult waitForTicksElsewhere(int interval) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(interval);
    return test::waitFor([&] { return ticks >= 3; });
  }

  test::NoSoundDaemon noSound_;
};

} // namespace

TEST(DeviceTypeOf, FollowsTheLastThreeCharactersInAnyCase) {
  EXPECT_EQ(deviceTypeOf("00012.wav"), DeviceType::WaveAudio);
  EXPECT_EQ(deviceTypeOf("A7.WAV"), DeviceType::WaveAudio);
  EXPECT_EQ(deviceTypeOf("a/tune.Mid"), DeviceType::Sequencer);
  EXPECT_EQ(deviceTypeOf("00012.mp3"), std::nullopt);
  EXPECT_EQ(deviceTypeOf("av"), std::nullopt);
  EXPECT_EQ(deviceTypeOf(""), std::nullopt);
}

TEST_F(MMControlTest, AtFirstNothingIsOpen) {
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
  EXPECT_EQ(player_.deviceType(), DeviceType::WaveAudio);
  EXPECT_EQ(player_.length(), 0);
  EXPECT_EQ(player_.position(), 0);
  EXPECT_EQ(player_.updateInterval(), 1000);
}

TEST_F(MMControlTest, AFileOfAnotherKindLeavesTheDeviceAsItWas) {
  player_.setFile("tune.mid");
  EXPECT_EQ(player_.deviceType(), DeviceType::Sequencer);
  player_.setFile("00012.ogg");
  EXPECT_EQ(player_.deviceType(), DeviceType::Sequencer);
  EXPECT_EQ(player_.fileName(), "00012.ogg");
}

TEST_F(MMControlTest, TheLengthOfAWaveIsExact) {
  open(tone("a.wav", 440, 1234, test::lowQuality));
  EXPECT_EQ(player_.length(), 1234 * 11025 / 1000 * 1000 / 11025);
  open(tone("b.wav", 440, 10'007));
  EXPECT_EQ(player_.length(), 10'007 * 22050 / 1000 * 1000 / 22050);
  EXPECT_EQ(player_.mode(), Mode::Stopped);
}

TEST_F(MMControlTest, AWaveOfTwoHoursIsNotRead) {
  constexpr std::int64_t twoHours = 7'200'000;
  std::ostringstream head;
  writeWaveHead(head, test::highQuality, test::highQuality.byteAt(twoHours));
  test::writeBytes(at("long.wav"), head.str());
  std::filesystem::resize_file(
      at("long.wav"), static_cast<std::uintmax_t>(44 + test::highQuality.byteAt(twoHours)));
  open(at("long.wav"));
  EXPECT_EQ(player_.length(), twoHours);
  EXPECT_TRUE(player_.PlayFrom(twoHours - 200));
  EXPECT_TRUE(waitUntilDone());
  EXPECT_EQ(player_.position(), twoHours);
}

TEST_F(MMControlTest, WithoutSoundItTellsSoAndTheTimeIsCountedToTheEnd) {
  open(silence("a.wav", 300));
  EXPECT_TRUE(player_.Play());
  EXPECT_EQ(player_.mode(), Mode::Playing);
  EXPECT_TRUE(waitUntilDone());
  EXPECT_EQ(player_.mode(), Mode::Stopped);
  EXPECT_EQ(player_.position(), 300);
  EXPECT_EQ(failed_.size(), 1);
  EXPECT_EQ(lastFailure().rfind("Sound cannot be heard: the desktop's sound service", 0), 0U)
      << lastFailure();
}

TEST_F(MMControlTest, WithoutSoundNothingIsRecorded) {
  open(emptyWave(test::lowQuality));
  player_.Record();
  EXPECT_TRUE(test::waitFor([&] { return player_.mode() == Mode::Stopped; }));
  EXPECT_EQ(lastFailure().rfind("Sound cannot be recorded: ", 0), 0U) << lastFailure();
  EXPECT_EQ(player_.length(), 0);
}

TEST_F(MMControlTest, StopStaysWhereItIsAndIsNotTheEnd) {
  open(silence("a.wav", 60'000));
  player_.Play();
  EXPECT_TRUE(waitUntilPosition(50));
  player_.Stop();
  const auto position = player_.position();
  EXPECT_GE(position, 50);
  EXPECT_LT(position, 60'000);
  EXPECT_EQ(player_.mode(), Mode::Stopped);
  QCoreApplication::processEvents();
  EXPECT_EQ(player_.position(), position);
  EXPECT_TRUE(done_.isEmpty());
}

TEST_F(MMControlTest, PlayGoesOnWhereItStopped) {
  open(silence("a.wav", 60'000));
  player_.Play();
  EXPECT_TRUE(waitUntilPosition(100));
  player_.Stop();
  const auto position = player_.position();
  player_.Play();
  EXPECT_GE(player_.position(), position);
}

TEST_F(MMControlTest, PlayAtTheEndBeginsAgain) {
  open(silence("a.wav", 60'000));
  player_.PlayFrom(59'900);
  ASSERT_TRUE(waitUntilDone());
  player_.Play();
  EXPECT_LT(player_.position(), 59'900);
  EXPECT_EQ(player_.mode(), Mode::Playing);
}

TEST_F(MMControlTest, PrevStopsAndGoesToTheStart) {
  open(silence("a.wav", 60'000));
  player_.Play();
  EXPECT_TRUE(waitUntilPosition(50));
  player_.Prev();
  EXPECT_EQ(player_.mode(), Mode::Stopped);
  EXPECT_EQ(player_.position(), 0);
}

TEST_F(MMControlTest, NextStopsAndGoesToTheEnd) {
  open(silence("a.wav", 60'000));
  player_.Play();
  player_.Next();
  EXPECT_EQ(player_.mode(), Mode::Stopped);
  EXPECT_EQ(player_.position(), 60'000);
}

TEST_F(MMControlTest, PauseHoldsThePositionUntilPlay) {
  open(silence("a.wav", 600'000));
  player_.Play();
  EXPECT_TRUE(waitUntilPosition(50));
  player_.Pause();
  EXPECT_EQ(player_.mode(), Mode::Paused);
  EXPECT_TRUE(waitUntilItStandsStill());
  EXPECT_LT(player_.position(), 600'000);
  player_.Play();
  EXPECT_EQ(player_.mode(), Mode::Playing);
  EXPECT_TRUE(waitUntilPosition(player_.position() + 50));
}

TEST_F(MMControlTest, PlayFromAPositionBeginsThere) {
  open(silence("a.wav", 60'000));
  EXPECT_TRUE(player_.PlayFrom(59'900));
  EXPECT_GE(player_.position(), 59'900);
  EXPECT_TRUE(waitUntilDone());
}

TEST_F(MMControlTest, ALoopIsPrevAndPlayBehindTheEnd) {
  QObject::connect(&player_, &MMControl::done, &player_, [&] {
    player_.Prev();
    player_.Play();
  });
  open(silence("a.wav", 50));
  player_.Play();
  EXPECT_TRUE(waitUntilDone(3));
  EXPECT_EQ(player_.mode(), Mode::Playing);
}

TEST_F(MMControlTest, CloseKeepsThePositionUntilTheNextOpen) {
  open(silence("a.wav", 60'000));
  player_.Play();
  EXPECT_TRUE(waitUntilPosition(100));
  player_.Close();
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
  EXPECT_GE(player_.position(), 100);
  EXPECT_EQ(player_.length(), 0);
  EXPECT_TRUE(player_.Open());
  EXPECT_EQ(player_.position(), 0);
}

TEST_F(MMControlTest, WhatIsNotOpenCannotBePlayedRecordedOrSaved) {
  EXPECT_FALSE(player_.Play());
  EXPECT_FALSE(player_.Record());
  EXPECT_FALSE(player_.Save());
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
  player_.Stop();
  player_.Pause();
  player_.Prev();
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
}

TEST_F(MMControlTest, WhileItPlaysItTellsItsStatusAtEachInterval) {
  player_.setUpdateInterval(10);
  open(silence("a.wav", 60'000));
  EXPECT_TRUE(ticks_.isEmpty());
  player_.Play();
  EXPECT_TRUE(test::waitFor([&] { return ticks_.size() >= 3; }));
  player_.setUpdateInterval(0);
  const auto told = ticks_.size();
  EXPECT_TRUE(waitForTicksElsewhere(10));
  EXPECT_EQ(ticks_.size(), told);
}

TEST_F(MMControlTest, WhatIsStoppedTellsNoStatus) {
  player_.setUpdateInterval(5);
  open(silence("a.wav", 60'000));
  player_.Play();
  player_.Stop();
  EXPECT_TRUE(waitForTicksElsewhere(5));
  EXPECT_TRUE(ticks_.isEmpty());
}

TEST_F(MMControlTest, ASoundThatEndedBeforeItWasStoppedIsNotDone) {
  open(silence("a.wav", 20));
  player_.Play();
  while (player_.position() < 20)
    std::this_thread::yield(); // it ends; nobody hears of it yet
  player_.Stop();
  QCoreApplication::processEvents();
  EXPECT_TRUE(done_.isEmpty());
}

TEST_F(MMControlTest, TheControlMayGoWhileItPlays) {
  auto control = std::make_unique<MMControl>();
  control->setFile(silence("a.wav", 60'000));
  EXPECT_TRUE(control->Open());
  EXPECT_TRUE(control->Play());
  control.reset();
  QCoreApplication::processEvents(); // what it had told already
}

TEST_F(MMControlTest, TheControlMayGoAsItIsDone) {
  auto* control = new MMControl;
  bool gone = false;
  QObject::connect(control, &MMControl::done, [&] {
    delete control;
    gone = true;
  });
  control->setFile(silence("a.wav", 20));
  control->Open();
  control->Play();
  EXPECT_TRUE(test::waitFor([&] { return gone; }));
}

TEST_F(MMControlTest, AFileThatIsNotThereIsTold) {
  EXPECT_NE(refusal(at("gone.wav")).find("gone.wav"), std::string::npos);
  EXPECT_NE(refusal(at("gone.mid")).find("gone.mid"), std::string::npos);
  EXPECT_NE(refusal(folder_.path()), "");
  player_.setDeviceType(DeviceType::Sequencer);
  EXPECT_NE(refusal(folder_.path()), "");
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
}

TEST_F(MMControlTest, BadFilesAreRefusedByTheirName) {
  test::writeBytes(at("empty.wav"), "");
  test::writeBytes(at("picture.wav"), "\xFF\xD8\xFF\xE0 no sound at all");
  test::writeBytes(at("head.wav"), test::silentWave(test::lowQuality, 500).substr(0, 30));
  test::writeBytes(at("garbage.mid"), "garbage");
  test::writeBytes(at("cut.mid"), test::midiTune(4, 4).substr(0, 40));
  for (const char* name : {"empty.wav", "picture.wav", "head.wav", "garbage.mid", "cut.mid"}) {
    EXPECT_EQ(refusal(at(name)).rfind("Cannot play \"" + at(name).string() + "\": it", 0), 0U)
        << refusal(at(name));
    EXPECT_EQ(player_.mode(), Mode::NotOpen);
    EXPECT_EQ(player_.length(), 0);
  }
}

TEST_F(MMControlTest, AnOpenThatFailsClosesWhatWasOpen) {
  open(silence("a.wav", 60'000));
  player_.Play();
  EXPECT_NE(refusal(at("gone.wav")), "");
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
  EXPECT_FALSE(player_.Play());
}

TEST_F(MMControlTest, ACommandThatSucceedsForgetsTheFailureBefore) {
  EXPECT_NE(refusal(at("gone.wav")), "");
  open(silence("a.wav", 100));
  EXPECT_EQ(player_.errorText(), QString());
}

TEST_F(MMControlTest, AWaveThatWasNotAddedToIsSavedAsItIs) {
  const auto source = tone("a.wav", 440, 500);
  open(source);
  player_.setFileName(at("b.wav"));
  EXPECT_TRUE(player_.Save());
  EXPECT_EQ(test::readBytes(at("b.wav")), test::readBytes(source));
}

TEST_F(MMControlTest, AWaveSavedOntoItselfIsNotTouched) {
  const auto source = tone("a.wav", 440, 500);
  const auto before = std::filesystem::last_write_time(source);
  open(source);
  bool kept = false;
  EXPECT_TRUE(player_.Save([&](const std::filesystem::path&) { kept = true; }));
  EXPECT_FALSE(kept);
  EXPECT_EQ(std::filesystem::last_write_time(source), before);
}

TEST_F(MMControlTest, ASaveThatFailsLeavesWhatIsThere) {
  open(tone("a.wav", 440, 500));
  player_.setFileName(at("no folder") / "b.wav");
  EXPECT_FALSE(player_.Save());
  EXPECT_NE(player_.errorText(), QString());
  EXPECT_TRUE(player_.isOpen());
}

TEST_F(MMControlTest, ATuneCannotBeSaved) {
  test::writeBytes(at("tune.mid"), test::midiTune(4, 4));
  open(at("tune.mid"));
  player_.setFileName(at("tune.wav"));
  EXPECT_FALSE(player_.Save());
  EXPECT_FALSE(std::filesystem::exists(at("tune.wav")));
}

} // namespace hearthbook
