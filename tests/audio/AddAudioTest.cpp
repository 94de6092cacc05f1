#include "AddAudioFixture.h"

#include "PictureBox.h"

#include <memory>
#include <tuple>

namespace hearthbook::test {

namespace {

using Names = std::vector<std::string>;

/// What a control went through since.
class Modes {
public:
  explicit Modes(MMControl& control) {
    QObject::connect(&control, &MMControl::modeChanged, &control,
                     [seen = seen_, &control] { seen->push_back(control.mode()); });
  }
  [[nodiscard]] const std::vector<MMControl::Mode>& seen() const { return *seen_; }

private:
  std::shared_ptr<std::vector<MMControl::Mode>> seen_ =
      std::make_shared<std::vector<MMControl::Mode>>();
};

/// Where nobody hears anything: what is played takes its time all the same.
class AddAudioTest : public AddAudioFixture {
protected:
  AddAudio& playSoundAndDisc() {
    attach("00001.wav", silentWave(lowQuality, 60'000));
    auto& dialog = openTab(Disc);
    EXPECT_TRUE(waitFor([&] { return disc(dialog).isOpen(); }));
    transport(dialog, "play");
    transport(dialog, "play", "MMControl2");
    return dialog;
  }

private:
  NoSoundDaemon noSound_;
};

} // namespace

// What is open

TEST_F(AddAudioTest, WithoutASoundTheTemplateOfTheLowQualityIsOpen) {
  const auto& dialog = open();
  EXPECT_EQ(sound(dialog).fileName(), audio("8Bit.wav"));
  EXPECT_TRUE(sound(dialog).isOpen());
  EXPECT_EQ(sound(dialog).length(), 0);
  EXPECT_FALSE(isEnabled(dialog, "Command3"));
  EXPECT_FALSE(isEnabled(dialog, "Command5"));
  EXPECT_TRUE(isChosen(dialog, "Option1"));
  EXPECT_EQ(control(dialog, "frameQuality")->property("Tag").toString(), toQString("11"));
  EXPECT_EQ(textOf(dialog, "lblLength"), "0 Sec.");
  EXPECT_FALSE(isVisible(dialog, "soundNote"));
}

TEST_F(AddAudioTest, AnAttachedWaveIsOpenAndTellsHowLongItIs) {
  attach("00001.wav", silentWave(lowQuality, 60'000));
  const auto& dialog = open();
  EXPECT_EQ(sound(dialog).fileName(), audio("00001.wav"));
  EXPECT_EQ(sound(dialog).deviceType(), DeviceType::WaveAudio);
  EXPECT_TRUE(isEnabled(dialog, "Command3"));
  EXPECT_TRUE(isEnabled(dialog, "Command5"));
  EXPECT_TRUE(isChosen(dialog, "Option1"));
  EXPECT_EQ(control(dialog, "frameQuality")->property("Tag").toString(), toQString("11"));
  EXPECT_EQ(textOf(dialog, "lblLength"), "60 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "660k");
}

TEST_F(AddAudioTest, AWaveOfTheHighQualityChoosesThatQuality) {
  attach("00001.wav", silentWave(highQuality, 60'000));
  const auto& dialog = open();
  EXPECT_TRUE(isChosen(dialog, "Option2"));
  EXPECT_EQ(control(dialog, "frameQuality")->property("Tag").toString(), toQString("86"));
  EXPECT_EQ(textOf(dialog, "lblLength"), "60 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "5160k");
}

TEST_F(AddAudioTest, AWaveShorterThanASecondShowsNoSeconds) {
  attach("00001.wav", silentWave(lowQuality, 900));
  const auto& dialog = open();
  EXPECT_EQ(textOf(dialog, "lblLength"), "0 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "0k");
}

TEST_F(AddAudioTest, AnAttachedTuneIsOpenOnTheSequencer) {
  attach("00001.mid", midiTune(8, 8));
  const auto& dialog = open();
  EXPECT_EQ(sound(dialog).deviceType(), DeviceType::Sequencer);
  EXPECT_EQ(textOf(dialog, "lblLength"), "4 Sec.");
  EXPECT_TRUE(isChosen(dialog, "Option1"));
}

TEST_F(AddAudioTest, AFileOfAnotherKindUnderTheOwnersNameLeavesTheDeviceAsItWas) {
  attach("00001.ogg", "no sound");
  const auto& dialog = open();
  EXPECT_EQ(sound(dialog).deviceType(), DeviceType::WaveAudio);
  EXPECT_TRUE(isEnabled(dialog, "Command5"));
  EXPECT_TRUE(isVisible(dialog, "soundNote"));
}

TEST_F(AddAudioTest, ADamagedSoundIsToldOnTheFormAndCanBeRemoved) {
  int shown = 0;
  for (const std::string& bytes : {std::string(), std::string("garbage"), std::string(200, 'x'),
                                   silentWave(lowQuality, 1000).replace(8, 4, "EVAW")}) {
    attach("00001.wav", bytes);
    auto& dialog = open();
    EXPECT_NE(textOf(dialog, "soundNote").find("00001.wav"), std::string::npos);
    EXPECT_TRUE(isVisible(dialog, "soundNote"));
    EXPECT_EQ(textOf(dialog, "lblLength"), "0 Sec.");
    EXPECT_TRUE(isEnabled(dialog, "Command5"));
    dialog.Unload();
    ++shown;
  }
  EXPECT_EQ(shown, 4);
}

TEST_F(AddAudioTest, TheQualityOfADamagedSoundFollowsItsBytesAlone) {
  for (const auto& [bytes, option] : {std::pair(0, "Option1"), std::pair(85, "Option1"),
                                      std::pair(86, "Option2"), std::pair(5000, "Option2")}) {
    attach("00001.wav", std::string(static_cast<std::size_t>(bytes), 'x'));
    auto& dialog = open();
    EXPECT_TRUE(isChosen(dialog, option)) << bytes;
    EXPECT_EQ(textOf(dialog, "lblLength"), "0 Sec.");
    EXPECT_EQ(textOf(dialog, "lblSize"), "0k");
    dialog.Unload();
  }
}

TEST_F(AddAudioTest, NamesThatLookLikeMarkedTextAreShownAsTheyAre) {
  const auto& dialog = open();
  for (const char* label : {"ownerName", "soundNote"})
    EXPECT_EQ(control<QLabel>(dialog, label)->textFormat(), Qt::PlainText) << label;
}

TEST_F(AddAudioTest, ADamagedTuneIsToldOnTheForm) {
  attach("00001.mid", "MThd and then garbage");
  const auto& dialog = open();
  EXPECT_NE(textOf(dialog, "soundNote").find("00001.mid"), std::string::npos);
}

TEST_F(AddAudioTest, OfAWaveThatIsCutOffWhatIsThereCounts) {
  attach("00001.wav", silentWave(lowQuality, 4000).substr(0, 44 + 2 * 11025));
  const auto& dialog = open();
  EXPECT_EQ(textOf(dialog, "lblLength"), "2 Sec.");
}

TEST_F(AddAudioTest, AWaveOfTwoHoursIsThereAtOnce) {
  attach("00001.wav", silentWave(lowQuality, 7'200'000));
  const auto& dialog = open();
  EXPECT_EQ(textOf(dialog, "lblLength"), "7200 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "79200k");
}

TEST_F(AddAudioTest, WithoutTheTemplateTheControlTellsSoAndTheProgramGoesOn) {
  std::filesystem::remove(audio("8Bit.wav"));
  const auto& dialog = open();
  EXPECT_NE(textOf(dialog, "soundNote").find("8Bit.wav"), std::string::npos);
  boxes_.expectFailure(toQString("8Bit.wav"));
  transport(dialog, "record");
  EXPECT_EQ(sound(dialog).mode(), Mode::NotOpen);
}

TEST_F(AddAudioTest, ThePhotoThatTheSoundIsForIsSeen) {
  writeJpeg(at("Photos/00001.jpg"), 640, 480, 0x336699);
  const auto& dialog = open();
  auto* picture = control<PictureBox>(dialog, "ownerPicture");
  ASSERT_TRUE(waitFor([&] { return picture->isVisible(); }));
  EXPECT_NEAR(picture->width() * 3.0 / 4, picture->height(), 1);
}

TEST_F(AddAudioTest, AClickOnAQualityStoresItsFactorAndTheEstimateIsMadeWithIt) {
  attach("00001.wav", silentWave(lowQuality, 60'000));
  const auto& dialog = open();
  for (const auto& [option, factor, estimate] :
       {std::tuple("Option2", "86", "5160k"), std::tuple("Option1", "11", "660k")}) {
    press(dialog, option);
    EXPECT_EQ(control(dialog, "frameQuality")->property("Tag").toString(), toQString(factor));
    transport(dialog, "play");
    transport(dialog, "stop");
    EXPECT_EQ(textOf(dialog, "lblSize"), estimate) << option;
  }
}

// Sub-albums

TEST_F(AddAudioTest, AnAlbumsSoundBearsItsIdWithoutLeadingZeros) {
  addAlbums();
  attach("00001.wav", silentWave(lowQuality, 1000));
  attach("A7.wav", silentWave(lowQuality, 3000));
  const auto& dialog = open("album");
  EXPECT_EQ(sound(dialog).fileName(), audio("A7.wav"));
  EXPECT_EQ(textOf(dialog, "ownerName"), "Lake");
}

TEST_F(AddAudioTest, ALongNameOfAnAlbumIsReadWhole) {
  addAlbums();
  data().AlbumDB.execute("UPDATE SubAlbums SET AlbumName = 'Our long summer at the sea, with "
                         "all of the cousins and the dog' WHERE AlbumID = 7");
  data().rsSubAlbums.Requery();
  data().rsSubAlbums.Find("AlbumID = 7", Recordset::Start::First);
  const auto& dialog = open("album");
  const auto* name = control<QLabel>(dialog, "ownerName");
  EXPECT_LE(name->heightForWidth(name->width()), name->height());
  EXPECT_GE(name->heightForWidth(name->width()), 2 * name->fontMetrics().height());
}

TEST_F(AddAudioTest, EveryTagButPictureMeansTheAlbum) {
  addAlbums();
  attach("00001.wav", silentWave(lowQuality, 1000));
  for (const char* tag : {"", "Picture", "background"}) {
    auto& dialog = open(tag);
    EXPECT_EQ(sound(dialog).fileName(), audio("8Bit.wav")) << tag;
    dialog.Unload();
  }
}

TEST_F(AddAudioTest, AnAlbumsSoundIsRemovedAfterItsOwnQuestion) {
  addAlbums();
  attach("A7.wav", silentWave(lowQuality, 1000));
  attach("A3.wav", silentWave(lowQuality, 1000));
  const auto& dialog = open("album");
  expectRemoval("album", MsgAnswer::Ok);
  press(dialog, "Command5");
  EXPECT_EQ(sounds(), Names{"A3.wav"});
}

// Tabs

TEST_F(AddAudioTest, EachTabShowsItsOwn) {
  auto& dialog = open();
  const auto shown = [&](std::initializer_list<const char*> names) {
    return std::ranges::all_of(names, [&](const char* name) { return isVisible(dialog, name); });
  };
  const auto hidden = [&](std::initializer_list<const char*> names) {
    return std::ranges::none_of(names, [&](const char* name) { return isVisible(dialog, name); });
  };
  EXPECT_TRUE(shown({"fromMic", "Command7", "Command8", "Command4", "Command6"}));
  EXPECT_TRUE(hidden({"FromCD", "fromFile", "Command1", "Command2"}));
  chooseTab(dialog, Disc);
  EXPECT_TRUE(shown({"fromMic", "FromCD", "Command7", "Command8", "Command4"}));
  EXPECT_TRUE(hidden({"fromFile", "Command1"}));
  chooseTab(dialog, File);
  EXPECT_TRUE(shown({"fromFile", "Command1", "Command2", "Command3"}));
  EXPECT_TRUE(hidden({"fromMic", "FromCD", "Command7", "Command8", "Command4"}));
  EXPECT_FALSE(control(*control(dialog, "MMControl1"), "record")->isVisible());
  chooseTab(dialog, Microphone);
  EXPECT_TRUE(control(*control(dialog, "MMControl1"), "record")->isVisible());
}

TEST_F(AddAudioTest, LengthAndSizeAreShownOnEachTab) {
  auto& dialog = open();
  for (const Tab tab : {File, Disc, Microphone}) {
    chooseTab(dialog, tab);
    EXPECT_TRUE(isVisible(dialog, "lblLength")) << tab;
    EXPECT_TRUE(isVisible(dialog, "lblSize")) << tab;
  }
}

TEST_F(AddAudioTest, TheWindowDoesNotGrowOnTheWayBackFromTheFiles) {
  auto& dialog = openTab(File);
  const QSize size = dialog.size();
  chooseTab(dialog, Microphone);
  EXPECT_EQ(dialog.size(), size);
}

TEST_F(AddAudioTest, ATabStopsWhatWasPlayedAndOpensTheAttachedSoundAgain) {
  attach("00001.wav", silentWave(lowQuality, 60'000));
  auto& dialog = open();
  transport(dialog, "play");
  chooseTab(dialog, Disc);
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  EXPECT_EQ(sound(dialog).fileName(), audio("00001.wav"));
  chooseTab(dialog, File);
  EXPECT_EQ(sound(dialog).mode(), Mode::NotOpen);
  chooseTab(dialog, Microphone);
  EXPECT_EQ(sound(dialog).fileName(), audio("00001.wav"));
  EXPECT_EQ(textOf(dialog, "lblLength"), "60 Sec.");
}

TEST_F(AddAudioTest, ATabPutsTheAttachedSoundBackOnItsOwnDevice) {
  attach("00001.mid", midiTune(8, 8));
  writeBytes(source_ / "voice.wav", silentWave(lowQuality, 3000));
  for (const Tab tab : {Microphone, Disc}) {
    auto& dialog = openTab(File);
    choose(dialog, "voice.wav");
    ASSERT_EQ(sound(dialog).deviceType(), DeviceType::WaveAudio);
    chooseTab(dialog, tab);
    EXPECT_EQ(sound(dialog).deviceType(), DeviceType::Sequencer) << tab;
    EXPECT_EQ(sound(dialog).fileName(), audio("00001.mid")) << tab;
    EXPECT_TRUE(sound(dialog).isOpen()) << tab;
    EXPECT_EQ(textOf(dialog, "lblLength"), "4 Sec.") << tab;
    dialog.Unload();
  }
}

TEST_F(AddAudioTest, TheTabForDiscsTellsWhereThereIsNone) {
  const ScopedVariable drive("HEARTHBOOK_DISC", (source_ / "none.cue").string());
  auto& dialog = openTab(Disc);
  EXPECT_TRUE(waitFor([&] { return isVisible(dialog, "soundNote"); }));
  EXPECT_FALSE(disc(dialog).isOpen());
  chooseTab(dialog, File);
  EXPECT_FALSE(isVisible(dialog, "soundNote"));
}

TEST_F(AddAudioTest, ADiscIsPlayedTrackByTrack) {
  const ScopedVariable drive("HEARTHBOOK_DISC", makeDisc(source_, {400, 500}, 3).string());
  auto& dialog = openTab(Disc);
  ASSERT_TRUE(waitFor([&] { return disc(dialog).isOpen(); })) << textOf(dialog, "soundNote");
  EXPECT_EQ(textOf(dialog, "discPosition"), "Track 1 of 2");
  transport(dialog, "play", "MMControl2");
  transport(dialog, "toEnd", "MMControl2");
  EXPECT_TRUE(waitFor([&] { return textOf(dialog, "discPosition") == "Track 2 of 2"; }));
  chooseTab(dialog, Microphone);
  EXPECT_FALSE(disc(dialog).isOpen());
}

// Removing and closing

TEST_F(AddAudioTest, RemovedSoundsGoToTheTrashAndTheFormStays) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  attach("00001.mid", midiTune(4, 4));
  attach("00002.wav", silentWave(lowQuality, 2000));
  const auto& dialog = open();
  expectRemoval("photo", MsgAnswer::Ok);
  press(dialog, "Command5");
  EXPECT_EQ(sounds(), Names{"00002.wav"});
  EXPECT_TRUE(std::filesystem::exists(folder_.trash() / "00001.wav"));
  EXPECT_FALSE(isEnabled(dialog, "Command5"));
  EXPECT_FALSE(isEnabled(dialog, "Command3"));
  EXPECT_EQ(told_, std::vector<bool>{false});
  EXPECT_EQ(textOf(dialog, "lblLength"), "0 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "0k");
  EXPECT_EQ(sound(dialog).fileName(), audio("8Bit.wav"));
  EXPECT_TRUE(isOpen());
}

TEST_F(AddAudioTest, CancelAtTheRemovalQuestionLeavesTheFilesAlone) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  const auto& dialog = open();
  expectRemoval("photo", MsgAnswer::Cancel);
  press(dialog, "Command5");
  EXPECT_EQ(sounds(), Names{"00001.wav"});
  EXPECT_TRUE(isEnabled(dialog, "Command5"));
  EXPECT_TRUE(told_.empty());
}

TEST_F(AddAudioTest, TheTabForFilesRemovesByTheSameCommand) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  const auto& dialog = openTab(File);
  expectRemoval("photo", MsgAnswer::Ok);
  press(dialog, "Command3");
  EXPECT_TRUE(sounds().empty());
}

TEST_F(AddAudioTest, BehindARemovalTheChosenFileIsOpenAsBefore) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  writeBytes(source_ / "voice.wav", silentWave(lowQuality, 3000));
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  expectRemoval("photo", MsgAnswer::Ok);
  press(dialog, "Command3");
  EXPECT_TRUE(sounds().empty());
  EXPECT_EQ(sound(dialog).fileName(), source_ / "voice.wav");
  EXPECT_TRUE(sound(dialog).isOpen());
  EXPECT_EQ(textOf(dialog, "lblLength"), "3 Sec.");
  EXPECT_EQ(textOf(dialog, "lblSize"), "33k");
  EXPECT_TRUE(isVisible(dialog, "lblSize"));
  EXPECT_FALSE(isEnabled(dialog, "Command3"));
}

TEST_F(AddAudioTest, ClosingAsksUnderTheTitleOfRemoving) {
  auto& dialog = open();
  expectClosing(MsgAnswer::Cancel);
  press(dialog, "Command6");
  EXPECT_TRUE(isOpen());
  chooseTab(dialog, File);
  expectClosing(MsgAnswer::Ok);
  press(dialog, "Command2");
  EXPECT_FALSE(isOpen());
}

TEST_F(AddAudioTest, EscapeIsTheCommandToClose) {
  auto& dialog = open();
  expectClosing(MsgAnswer::Ok);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
}

TEST_F(AddAudioTest, TheClosingCommandSilencesTheSoundAndTheDisc) {
  const ScopedVariable drive("HEARTHBOOK_DISC", makeDisc(source_, {400}, 3).string());
  auto& dialog = playSoundAndDisc();
  const Modes ofSound(sound(dialog));
  const Modes ofDisc(disc(dialog));
  expectClosing(MsgAnswer::Cancel);
  press(dialog, "Command6");
  EXPECT_TRUE(ofSound.seen().empty()) << "nothing was closed";
  EXPECT_TRUE(disc(dialog).isOpen());
  expectClosing(MsgAnswer::Ok);
  press(dialog, "Command6");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(ofSound.seen(), (std::vector{Mode::Stopped, Mode::NotOpen}));
  ASSERT_FALSE(ofDisc.seen().empty());
  EXPECT_EQ(ofDisc.seen().back(), Mode::NotOpen);
}

TEST_F(AddAudioTest, TheClosingCommandOfTheTabForFilesSilencesTheChosenFile) {
  writeBytes(source_ / "voice.wav", silentWave(lowQuality, 60'000));
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  transport(dialog, "play");
  const Modes ofSound(sound(dialog));
  expectClosing(MsgAnswer::Ok);
  press(dialog, "Command2");
  EXPECT_FALSE(isOpen());
  ASSERT_FALSE(ofSound.seen().empty());
  EXPECT_EQ(ofSound.seen().back(), Mode::NotOpen);
}

TEST_F(AddAudioTest, UnloadingByOtherMeansIsSilentAndAsksNothing) {
  const ScopedVariable drive("HEARTHBOOK_DISC", makeDisc(source_, {400}, 3).string());
  auto& dialog = playSoundAndDisc();
  const Modes ofSound(sound(dialog));
  const Modes ofDisc(disc(dialog));
  dialog.close();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(ofSound.seen(), (std::vector{Mode::Stopped, Mode::NotOpen}));
  EXPECT_EQ(ofDisc.seen(), (std::vector{Mode::Stopped, Mode::NotOpen}));
}

} // namespace hearthbook::test
