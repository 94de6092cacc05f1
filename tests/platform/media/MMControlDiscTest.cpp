#include "DiscSound.h"
#include "MediaFixture.h"
#include "RunTimeError.h"

#include <QFutureWatcher>

#include <atomic>
#include <thread>
#include <vector>

namespace hearthbook {

namespace {

using Mode = MMControl::Mode;

class MMControlDisc : public test::MediaFixture {
protected:
  MMControlDisc() { player_.setDeviceType(DeviceType::CDAudio); }

  void insertDisc() {
    player_.setFileName(test::makeDisc(at("disc"), {500, 900, 700}, 4));
    ASSERT_TRUE(openDisc());
  }
  /// Why a drive is of no use.
  std::string refusalOf(const std::filesystem::path& drive) {
    player_.setFileName(drive);
    return openDisc() ? std::string() : toUtf8(player_.errorText());
  }
  testing::AssertionResult ejectFails() {
    const auto failures = failed_.size();
    player_.Eject();
    return test::waitFor([&] { return failed_.size() > failures; });
  }
  /// What they answered has been taken or dropped.
  testing::AssertionResult waitUntilDrivesAnswered() {
    return test::waitFor([&] { return !player_.findChild<QFutureWatcherBase*>(); });
  }
  testing::AssertionResult waitUntilDrivesAnswered(const test::SlowFile& slow) {
    return test::waitFor([&] {
      static_cast<void>(slow.letGo());
      return !player_.findChild<QFutureWatcherBase*>();
    });
  }

  static bool opensWhole(const std::filesystem::path& image) {
    try {
      return DiscSound(image).tracks() == 3;
    } catch (const RunTimeError&) {
      return false;
    }
  }

  test::SoundDaemon daemon_;
};

} // namespace

TEST_F(MMControlDisc, ItsTracksLieOneBehindTheOther) {
  insertDisc();
  EXPECT_EQ(player_.length(), 12'000);
  EXPECT_EQ(player_.tracks(), 3);
  EXPECT_EQ(player_.track(), 1);
}

TEST_F(MMControlDisc, ItIsHeard) {
  insertDisc();
  player_.PlayFrom(4000);
  EXPECT_EQ(player_.track(), 2);
  MMControl recorder;
  recorder.setFile(emptyWave(test::highQuality));
  ASSERT_TRUE(recorder.Open());
  ASSERT_TRUE(waitUntilPosition(4300));
  ASSERT_TRUE(recorder.Record());
  ASSERT_TRUE(test::waitFor([&] { return recorder.length() >= 1000; }));
  recorder.setFileName(at("recorded.wav"));
  ASSERT_TRUE(recorder.Save());
  EXPECT_NEAR(test::listenTo(at("recorded.wav")).hertz, 900, 20);
}

TEST_F(MMControlDisc, ItPlaysToItsEnd) {
  insertDisc();
  player_.PlayFrom(11'700);
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(player_.position(), 12'000);
  EXPECT_EQ(player_.track(), 3);
}

TEST_F(MMControlDisc, NextAndPrevGoByTracks) {
  insertDisc();
  player_.Next();
  EXPECT_EQ(player_.position(), 4000);
  player_.Next();
  EXPECT_EQ(player_.track(), 3);
  player_.Prev();
  EXPECT_EQ(player_.track(), 2) << "the third had just begun";
  player_.Prev();
  player_.Prev();
  EXPECT_EQ(player_.position(), 0);
  EXPECT_EQ(player_.mode(), Mode::Stopped);
  player_.Next();
  player_.Next();
  player_.Next();
  EXPECT_EQ(player_.position(), 12'000);
}

TEST_F(MMControlDisc, PrevWithinATrackGoesToItsStart) {
  insertDisc();
  player_.PlayFrom(6500);
  player_.Prev();
  EXPECT_EQ(player_.mode(), Mode::Playing);
  EXPECT_LT(player_.position(), 6000);
  EXPECT_EQ(player_.track(), 2);
}

TEST_F(MMControlDisc, ADiscThatPlaysGoesOnInTheNextTrack) {
  insertDisc();
  player_.Play();
  player_.Next();
  EXPECT_EQ(player_.mode(), Mode::Playing);
  EXPECT_EQ(player_.track(), 2);
}

TEST_F(MMControlDisc, ADiscThatGoesAwayAsItPlaysStopsAndIsTold) {
  insertDisc();
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(100));
  std::filesystem::resize_file(at("disc/disc.bin"), 0);
  ASSERT_TRUE(test::waitFor([&] { return player_.mode() == Mode::Stopped; }));
  EXPECT_EQ(lastFailure(),
            "The disc in the drive " + at("disc/disc.cue").string() + " cannot be read any more.");
  EXPECT_TRUE(done_.isEmpty());
}

TEST_F(MMControlDisc, NoDriveIsTold) {
  EXPECT_FALSE(openDisc());
  EXPECT_EQ(toUtf8(player_.errorText()), "There is no drive with an audio disc in it.");
}

TEST_F(MMControlDisc, WithoutADriveThereIsNoTrayToOpen) {
  if (std::filesystem::exists("/dev/cdrom") || std::filesystem::exists("/dev/sr0"))
    GTEST_SKIP() << "the drive of this machine is left alone";
  ASSERT_TRUE(ejectFails());
  EXPECT_EQ(lastFailure(), "There is no disc drive.");
}

TEST_F(MMControlDisc, ADriveWithoutADiscIsTold) {
  EXPECT_EQ(refusalOf(at("gone.cue")),
            "There is no audio disc in the drive " + at("gone.cue").string() + ".");
}

TEST_F(MMControlDisc, WhatIsNoDiscIsRefused) {
  test::writeBytes(at("garbage.cue"), "no disc at all");
  test::writeBytes(at("empty.cue"), "");
  EXPECT_NE(refusalOf(at("garbage.cue")), "");
  EXPECT_NE(refusalOf(at("empty.cue")), "");
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
}

TEST_F(MMControlDisc, TheDriveCanBeToldFromOutside) {
  const auto disc = test::makeDisc(at("disc"), {500}, 4);
  const test::ScopedVariable drive("HEARTHBOOK_DISC", disc.string());
  EXPECT_TRUE(openDisc());
  EXPECT_EQ(player_.tracks(), 1);
}

TEST_F(MMControlDisc, ADriveThatDoesNotOpenIsTold) {
  insertDisc();
  EXPECT_TRUE(ejectFails());
  EXPECT_NE(toUtf8(player_.errorText()).find("cannot be opened"), std::string::npos);
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
}

TEST_F(MMControlDisc, NobodyWaitsForADriveThatTakesItsTime) {
  const test::SlowFile drive(at("slow.cue"));
  player_.setFileName(drive.name());
  EXPECT_TRUE(player_.Open());
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
  EXPECT_FALSE(player_.Play());
  const auto told = failed_.size();
  EXPECT_TRUE(test::waitFor([&] { return !drive.letGo() && failed_.size() > told; }));
  EXPECT_EQ(lastFailure(), "There is no audio disc in the drive " + drive.name().string() + ".");
}

TEST_F(MMControlDisc, WhatADriveAnswersTooLateIsDropped) {
  const test::SlowFile drive(at("slow.cue"));
  player_.setFileName(drive.name());
  ASSERT_TRUE(player_.Open());
  insertDisc();
  EXPECT_TRUE(waitUntilDrivesAnswered(drive));
  EXPECT_EQ(player_.tracks(), 3);
  EXPECT_TRUE(failed_.isEmpty()) << lastFailure();
}

TEST_F(MMControlDisc, ADiscThatIsClosedBeforeItsDriveAnswersStaysClosed) {
  player_.setFileName(test::makeDisc(at("disc"), {500}, 1));
  ASSERT_TRUE(player_.Open());
  player_.Close();
  EXPECT_TRUE(waitUntilDrivesAnswered());
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
  EXPECT_TRUE(modes_.isEmpty());
}

TEST_F(MMControlDisc, AControlMayGoBeforeItsDriveAnswers) {
  const test::SlowFile drive(at("slow.cue"));
  const auto before = test::threadsOfThisProgram();
  {
    MMControl other;
    other.setDeviceType(DeviceType::CDAudio);
    other.setFileName(drive.name());
    ASSERT_TRUE(other.Open());
  }
  EXPECT_TRUE(test::waitFor([&] {
    static_cast<void>(drive.letGo());
    return test::threadsOfThisProgram() <= before;
  }));
}

TEST_F(MMControlDisc, AnImageCanBeOpenedBySeveralAtOnce) {
  const std::filesystem::path image = test::makeDisc(at("disc"), {500, 900, 700}, 4);
  std::atomic<int> failures = 0;
  std::vector<std::jthread> openers(4);
  for (std::jthread& opener : openers)
    opener = std::jthread([&] {
      for (int time = 0; time < 200; ++time)
        failures += opensWhole(image) ? 0 : 1;
    });
  openers.clear();
  EXPECT_EQ(failures, 0);
}

TEST_F(MMControlDisc, ADiscCannotBeRecordedOrSaved) {
  insertDisc();
  EXPECT_FALSE(player_.Record());
  EXPECT_FALSE(player_.Save());
}

} // namespace hearthbook
