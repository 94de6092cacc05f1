#include "MediaFixture.h"

namespace hearthbook {

namespace {

using Mode = MMControl::Mode;

/// On a desktop with sound: what is played is heard, and recorded.
class MMControlSound : public test::MediaFixture {
protected:
  /// Records for so long what is heard meanwhile.
  void record(const SoundFormat& format, std::int64_t milliseconds) {
    open(emptyWave(format));
    ASSERT_TRUE(player_.Record());
    ASSERT_EQ(player_.mode(), Mode::Recording);
    ASSERT_TRUE(test::waitFor([&] { return player_.length() >= milliseconds; }));
    player_.Stop();
  }
  /// Of what is heard now, recorded by another control.
  double loudestOfARecording() {
    MMControl other;
    other.setFile(emptyWave(test::highQuality));
    EXPECT_TRUE(other.Open() && other.Record());
    EXPECT_TRUE(test::waitFor([&] { return other.length() >= 300; }));
    other.setFileName(at("heard.wav"));
    EXPECT_TRUE(other.Save());
    return test::listenTo(at("heard.wav")).loudest;
  }
  void saveAs(const std::string& name) {
    player_.setFileName(at(name));
    ASSERT_TRUE(player_.Save()) << toUtf8(player_.errorText());
  }

  test::SoundDaemon daemon_;
};

/// Plays a file again and again for as long as it lives.
class Music {
public:
  explicit Music(const std::filesystem::path& file) {
    QObject::connect(&player_, &MMControl::done, &player_, [this] {
      player_.Prev();
      player_.Play();
    });
    player_.setFile(file);
    player_.Open();
    player_.Play();
    EXPECT_TRUE(test::waitFor([this] { return player_.position() > 0; }));
  }

private:
  MMControl player_;
};

} // namespace

TEST_F(MMControlSound, AWaveIsHeard) {
  open(tone("a.wav", 440, 1500));
  test::Listener listener(at("heard.wav"));
  player_.Play();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(player_.position(), player_.length());
  EXPECT_TRUE(failed_.isEmpty()) << lastFailure();
  const test::Heard heard = listener.heard();
  EXPECT_NEAR(heard.loudest, 0.8, 0.05);
}

TEST_F(MMControlSound, WavesOfEveryFormatAreHeard) {
  for (const auto& format :
       {test::lowQuality, test::highQuality, SoundFormat{SoundFormat::Sample::S24, 2, 48000},
        SoundFormat{SoundFormat::Sample::S32, 1, 8000},
        SoundFormat{SoundFormat::Sample::Float32, 2, 44100},
        SoundFormat{SoundFormat::Sample::ALaw, 1, 22050},
        SoundFormat{SoundFormat::Sample::MuLaw, 2, 16000}}) {
    const Music music(tone("a.wav", 600, 3000, format));
    ASSERT_EQ(infoOf(at("a.wav")).format, format);
    record(test::highQuality, 600);
    saveAs("heard.wav");
    const test::Heard heard = test::listenTo(at("heard.wav"));
    EXPECT_NEAR(heard.hertz, 600, 30) << format.rate;
    EXPECT_NEAR(heard.loudest, 0.8, 0.1) << format.rate;
  }
}

TEST_F(MMControlSound, ThePositionIsWhatHasBeenHeard) {
  open(tone("a.wav", 440, 2000));
  player_.Play();
  std::int64_t last = 0;
  while (done_.isEmpty()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_GE(player_.position(), last);
    EXPECT_LE(player_.position(), 2000);
    last = player_.position();
  }
  EXPECT_EQ(player_.position(), 2000);
}

TEST_F(MMControlSound, PlayFromAPositionLeavesOutWhatIsBefore) {
  open(tone("a.wav", 440, 60'000));
  player_.PlayFrom(59'500);
  EXPECT_GE(player_.position(), 59'500);
  EXPECT_TRUE(waitUntilDone());
  EXPECT_EQ(player_.position(), 60'000);
}

TEST_F(MMControlSound, APauseIsSilent) {
  open(tone("a.wav", 440, 60'000));
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(200));
  player_.Pause();
  // First comes what the loudspeaker had been given already.
  ASSERT_TRUE(test::waitFor([&] { return loudestOfARecording() < 0.01; }));
  const auto position = player_.position();
  EXPECT_LT(position, 60'000);
  EXPECT_LT(loudestOfARecording(), 0.01);
  EXPECT_EQ(player_.position(), position);
  player_.Play();
  EXPECT_TRUE(waitUntilPosition(position + 100));
}

TEST_F(MMControlSound, TheRecordingHasTheFormatOfItsTemplate) {
  const Music music(tone("a.wav", 440, 3000));
  for (const auto& format : {test::lowQuality, test::highQuality}) {
    record(format, 1000);
    saveAs("recorded.wav");
    const test::Heard heard = test::listenTo(at("recorded.wav"));
    EXPECT_EQ(heard.rate, format.rate);
    EXPECT_EQ(heard.channels, format.channels);
    EXPECT_EQ(heard.bits, 8 * format.sampleBytes());
    EXPECT_NEAR(heard.hertz, 440, 25);
    EXPECT_NEAR(heard.loudest, 0.8, 0.1);
    EXPECT_EQ(static_cast<std::int64_t>(heard.seconds * 1000), player_.length());
  }
}

TEST_F(MMControlSound, SomebodyWhoSpeaksIsRecorded) {
  test::writeSpeech(at("speech.wav"), "This is the summer at the lake");
  const Music music(at("speech.wav"));
  record(test::lowQuality, 1500);
  saveAs("recorded.wav");
  EXPECT_GT(test::listenTo(at("recorded.wav")).loudest, 0.2);
}

TEST_F(MMControlSound, TheTemplateStaysAsItIs) {
  record(test::lowQuality, 200);
  EXPECT_EQ(test::readBytes(at("empty.wav")), test::silentWave(test::lowQuality, 0));
  saveAs("recorded.wav");
  EXPECT_EQ(test::readBytes(at("empty.wav")), test::silentWave(test::lowQuality, 0));
}

TEST_F(MMControlSound, ARecordingIsHeardBeforeItIsSaved) {
  {
    const Music music(tone("a.wav", 440, 3000));
    record(test::lowQuality, 1000);
  }
  const auto length = player_.length();
  EXPECT_EQ(player_.position(), length);
  test::Listener listener(at("heard.wav"));
  player_.Play();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(player_.position(), length);
  EXPECT_GT(listener.heard().loudest, 0.6);
}

TEST_F(MMControlSound, WhatIsRecordedIsCountedMeanwhile) {
  player_.setUpdateInterval(20);
  open(emptyWave(test::lowQuality));
  player_.Record();
  ASSERT_TRUE(waitUntilPosition(300));
  EXPECT_EQ(player_.mode(), Mode::Recording);
  EXPECT_FALSE(ticks_.isEmpty());
  EXPECT_GE(player_.length(), 300);
}

TEST_F(MMControlSound, RecordAppendsToWhatIsOpen) {
  open(tone("a.wav", 440, 500));
  ASSERT_TRUE(player_.Record());
  ASSERT_TRUE(test::waitFor([&] { return player_.length() >= 800; }));
  player_.Stop();
  saveAs("longer.wav");
  const std::string before = test::readBytes(at("a.wav"));
  EXPECT_EQ(test::readBytes(at("longer.wav")).substr(44, before.size() - 44), before.substr(44));
}

TEST_F(MMControlSound, CloseDropsWhatWasRecorded) {
  record(test::lowQuality, 200);
  player_.Close();
  ASSERT_TRUE(player_.Open());
  EXPECT_EQ(player_.length(), 0);
}

TEST_F(MMControlSound, ASaveThatFailsKeepsTheRecording) {
  record(test::lowQuality, 200);
  const auto length = player_.length();
  player_.setFileName(at("no folder") / "b.wav");
  EXPECT_FALSE(player_.Save());
  EXPECT_EQ(player_.length(), length);
  saveAs("b.wav");
  EXPECT_EQ(infoOf(at("b.wav")).length(), length);
}

TEST_F(MMControlSound, BeforeARecordingTakesAPlaceTheOldFileCanBePutAway) {
  record(test::lowQuality, 200);
  test::writeBytes(at("00012.wav"), "old");
  player_.setFileName(at("00012.wav"));
  EXPECT_TRUE(player_.Save([&](const std::filesystem::path& old) {
    EXPECT_EQ(test::readBytes(old), "old");
    std::filesystem::rename(old, at("trash.wav"));
  }));
  EXPECT_EQ(test::readBytes(at("trash.wav")), "old");
  EXPECT_EQ(infoOf(at("00012.wav")).format, test::lowQuality);
}

TEST_F(MMControlSound, ATuneIsHeardForAsLongAsItsTempoTells) {
  test::writeBytes(at("tune.mid"), test::midiTune(5, 3));
  open(at("tune.mid"));
  EXPECT_EQ(player_.length(), 2000);
  test::Listener listener(at("heard.wav"));
  player_.Play();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_TRUE(failed_.isEmpty()) << lastFailure();
  EXPECT_EQ(player_.position(), 2000);
  EXPECT_GT(listener.heard().loudest, 0.05);
}

TEST_F(MMControlSound, ATuneGoesRoundAndRound) {
  test::writeBytes(at("tune.mid"), test::midiTune(2, 0));
  QObject::connect(&player_, &MMControl::done, &player_, [this] {
    player_.Prev();
    player_.Play();
  });
  open(at("tune.mid"));
  player_.Play();
  ASSERT_TRUE(waitUntilDone(2));
  test::Listener listener(at("heard.wav"));
  ASSERT_TRUE(waitUntilDone(3));
  EXPECT_GT(listener.heard().loudest, 0.05);
  EXPECT_TRUE(failed_.isEmpty()) << lastFailure();
}

TEST_F(MMControlSound, ATuneThatWasClosedGoesOnWhereItStopped) {
  test::writeBytes(at("tune.mid"), test::midiTune(8, 8));
  open(at("tune.mid"));
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(300));
  player_.Close();
  const auto stopped = player_.position();
  ASSERT_GE(stopped, 300);
  ASSERT_TRUE(player_.Open());
  ASSERT_TRUE(player_.PlayFrom(stopped));
  EXPECT_GE(player_.position(), stopped);
  test::Listener listener(at("heard.wav"));
  ASSERT_TRUE(waitUntilPosition(stopped + 600));
  EXPECT_GT(listener.heard().loudest, 0.05);
  EXPECT_TRUE(failed_.isEmpty()) << lastFailure();
}

TEST_F(MMControlSound, ATuneWithoutASoundFontIsSilentAndTold) {
  const test::ScopedVariable noFont("HEARTHBOOK_SOUNDFONT", "/nowhere/font.sf2");
  test::writeBytes(at("tune.mid"), test::midiTune(2, 0));
  open(at("tune.mid"));
  player_.Play();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(lastFailure(),
            "There are no instruments to play MIDI with: no sound font is installed.");
  EXPECT_EQ(player_.position(), 500);
}

TEST_F(MMControlSound, AFontThatIsNoneIsTold) {
  test::writeBytes(at("font.sf2"), "no font");
  const test::ScopedVariable font("HEARTHBOOK_SOUNDFONT", at("font.sf2").string());
  test::writeBytes(at("tune.mid"), test::midiTune(1, 0));
  open(at("tune.mid"));
  player_.Play();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(lastFailure(),
            "Cannot play MIDI with the sound font \"" + at("font.sf2").string() + "\".");
}

TEST_F(MMControlSound, ASoundThatIsCutOffAsItPlaysEndsThere) {
  open(tone("a.wav", 440, 60'000));
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(100));
  std::filesystem::resize_file(at("a.wav"), 1000);
  EXPECT_TRUE(waitUntilDone());
}

TEST_F(MMControlSound, AServiceThatDiesAsItPlaysLeavesTheTimeRunning) {
  open(tone("a.wav", 440, 1500));
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(200));
  daemon_.kill();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(failed_.size(), 1);
  EXPECT_EQ(player_.position(), 1500);
}

TEST_F(MMControlSound, ALoudspeakerThatGoesAwayLeavesTheTimeRunning) {
  open(tone("a.wav", 440, 1500));
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(200));
  daemon_.takeDeviceAway();
  ASSERT_TRUE(waitUntilDone());
  EXPECT_EQ(failed_.size(), 1);
  EXPECT_EQ(player_.position(), 1500);
}

TEST_F(MMControlSound, AMicrophoneThatGoesAwayLeavesWhatWasRecorded) {
  open(emptyWave(test::lowQuality));
  player_.Record();
  ASSERT_TRUE(test::waitFor([&] { return player_.length() >= 300; }));
  daemon_.takeDeviceAway();
  ASSERT_TRUE(test::waitFor([&] { return player_.mode() == Mode::Stopped; }));
  EXPECT_EQ(failed_.size(), 1);
  EXPECT_GE(player_.length(), 300);
  saveAs("recorded.wav");
  EXPECT_EQ(infoOf(at("recorded.wav")).length(), player_.length());
}

TEST_F(MMControlSound, AServiceThatDiesAsItRecordsLeavesWhatWasRecorded) {
  open(emptyWave(test::highQuality));
  player_.Record();
  ASSERT_TRUE(test::waitFor([&] { return player_.length() >= 300; }));
  daemon_.kill();
  ASSERT_TRUE(test::waitFor([&] { return player_.mode() == Mode::Stopped; }));
  EXPECT_GE(player_.length(), 300);
  saveAs("recorded.wav");
}

TEST_F(MMControlSound, WithoutAnyMicrophoneThatIsTold) {
  daemon_.takeDeviceAway();
  open(emptyWave(test::lowQuality));
  player_.Record();
  ASSERT_TRUE(test::waitFor([&] { return player_.mode() == Mode::Stopped; }));
  EXPECT_EQ(lastFailure(), "There is no microphone or other input to record from.");
}

TEST_F(MMControlSound, AServiceThatHangsHoldsNothingUp) {
  open(tone("a.wav", 440, 60'000));
  player_.Play();
  ASSERT_TRUE(waitUntilPosition(100));
  daemon_.freeze();
  player_.Stop();
  EXPECT_EQ(player_.mode(), Mode::Stopped);
  player_.Play();
  player_.Close();
  EXPECT_EQ(player_.mode(), Mode::NotOpen);
}

TEST_F(MMControlSound, AServiceThatComesBackIsHeardAtTheNextPlay) {
  open(tone("a.wav", 440, 300));
  {
    const test::NoSoundDaemon noSound;
    player_.Play();
    ASSERT_TRUE(waitUntilDone());
    ASSERT_EQ(failed_.size(), 1);
  }
  player_.Play();
  ASSERT_TRUE(waitUntilDone(2));
  EXPECT_EQ(failed_.size(), 1);
}

} // namespace hearthbook
