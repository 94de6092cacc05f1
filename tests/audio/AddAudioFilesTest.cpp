#include "AddAudioFixture.h"

#include "PrivateMount.h"

namespace hearthbook::test {

namespace {

using Names = std::vector<std::string>;

/// The tab on which a file is chosen and attached.
class AddAudioFiles : public AddAudioFixture {
protected:
  AddAudioFiles() {
    add("voice.wav", silentWave(lowQuality, 3000));
    add("Tune.MID", midiTune(4, 4));
    add("notes.txt", "no sound");
  }

  static void typeFolder(AddAudio& dialog, const std::filesystem::path& folder) {
    auto* edit = control<QLineEdit>(dialog, "folderEdit");
    edit->setFocus();
    edit->setText(toQString(folder));
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return !dialog.isReading(); }));
  }
  static QStringList listed(const AddAudio& dialog) {
    return textsOf(*control<QListWidget>(dialog, "File1"));
  }

  NoSoundDaemon noSound_;
};

} // namespace

TEST_F(AddAudioFiles, OnlyWavesAndTunesAreListed) {
  EXPECT_EQ(listed(openTab(File)), (QStringList{toQString("Tune.MID"), toQString("voice.wav")}));
}

TEST_F(AddAudioFiles, TheFolderLastOpenedIsThereAgain) {
  std::filesystem::create_directory(source_ / "deeper");
  auto& dialog = openTab(File);
  typeFolder(dialog, source_ / "deeper");
  dialog.Unload();
  EXPECT_EQ(vars().LastSoundFolder, source_ / "deeper");
  EXPECT_EQ(listed(openTab(File)), QStringList());
}

TEST_F(AddAudioFiles, AChosenFileIsOpenedAndTellsItsSize) {
  auto& dialog = openTab(File);
  EXPECT_EQ(textOf(dialog, "Label1"), "File Size: ");
  choose(dialog, "voice.wav");
  EXPECT_EQ(textOf(dialog, "Label1"), "File Size: 32k"); // 33119 bytes
  EXPECT_EQ(sound(dialog).fileName(), source_ / "voice.wav");
  EXPECT_EQ(sound(dialog).deviceType(), DeviceType::WaveAudio);
  EXPECT_EQ(textOf(dialog, "lblLength"), "3 Sec.");
  choose(dialog, "Tune.MID");
  EXPECT_EQ(sound(dialog).deviceType(), DeviceType::Sequencer);
  EXPECT_EQ(textOf(dialog, "lblLength"), "2 Sec.");
}

TEST_F(AddAudioFiles, AChosenFileIsPlayedOnDemand) {
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  EXPECT_EQ(sound(dialog).mode(), Mode::Stopped);
  transport(dialog, "play");
  EXPECT_EQ(sound(dialog).mode(), Mode::Playing);
}

TEST_F(AddAudioFiles, AnotherFolderLeavesNothingChosen) {
  std::filesystem::create_directory(source_ / "deeper");
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  typeFolder(dialog, source_ / "deeper");
  EXPECT_EQ(textOf(dialog, "Label1"), "File Size: ");
  EXPECT_FALSE(sound(dialog).isOpen());
  expectRefusal("Please Select Audio File");
  press(dialog, "Command1");
}

TEST_F(AddAudioFiles, WithoutAChoiceNothingIsAttached) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  const auto& dialog = openTab(File);
  expectRefusal("Please Select Audio File");
  press(dialog, "Command1");
  EXPECT_EQ(sounds(), Names{"00001.wav"});
  EXPECT_TRUE(isOpen());
}

TEST_F(AddAudioFiles, AnAttachedFileIsCopiedToldAndTheFormGoes) {
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  expectAttached();
  press(dialog, "Command1");
  EXPECT_EQ(readBytes(audio("00001.wav")), readBytes(source_ / "voice.wav"));
  EXPECT_EQ(told_, std::vector<bool>{true});
  EXPECT_FALSE(isOpen());
}

TEST_F(AddAudioFiles, ATuneAttachedOverAWaveLeavesOnlyTheTune) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  auto& dialog = openTab(File);
  choose(dialog, "Tune.MID");
  expectAttached();
  press(dialog, "Command1");
  EXPECT_EQ(sounds(), Names{"00001.MID"});
  EXPECT_TRUE(std::filesystem::exists(folder_.trash() / "00001.wav"));
}

TEST_F(AddAudioFiles, AnAlbumsTuneBearsItsId) {
  addAlbums();
  auto& dialog = open("album");
  chooseTab(dialog, File);
  choose(dialog, "Tune.MID");
  expectAttached();
  press(dialog, "Command1");
  EXPECT_EQ(sounds(), Names{"A7.MID"});
  EXPECT_EQ(told_, std::vector<bool>{true});
}

TEST_F(AddAudioFiles, AFileThatHasGoneIsReportedAndTheOldSoundStays) {
  attach("00001.wav", silentWave(lowQuality, 2000));
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  std::filesystem::remove(source_ / "voice.wav");
  boxes_.expectFailure(toQString("voice.wav"));
  press(dialog, "Command1");
  EXPECT_EQ(sounds(), Names{"00001.wav"});
  EXPECT_TRUE(told_.empty());
  EXPECT_TRUE(isOpen());
}

TEST_F(AddAudioFiles, AnAudioFolderThatCannotBeWrittenToIsReported) {
  if (!canMountPrivately())
    GTEST_SKIP() << "this machine lets tests mount nothing";
  attach("00001.wav", silentWave(lowQuality, 2000));
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  const ReadOnlyMount readOnly(at("Audio"));
  boxes_.expectFailure(toQString("Audio"));
  press(dialog, "Command1");
  EXPECT_EQ(sounds(), Names{"00001.wav"});
  EXPECT_TRUE(sound(dialog).isOpen()); // can be played again
  boxes_.expectQuestion(toQString("Are you sure you want to remove audio from current photo?"),
                        toQString("Remove Audio"), MsgIcon::Information, MsgButtons::OkCancel,
                        MsgAnswer::Ok);
  boxes_.expectFailure(toQString("00001.wav"));
  press(dialog, "Command3");
  EXPECT_TRUE(isEnabled(dialog, "Command3"));
  EXPECT_EQ(told_, std::vector<bool>{true});
}

TEST_F(AddAudioFiles, DamagedFilesAreToldOnTheFormWithoutABox) {
  add("broken.wav", "RIFF");
  add("empty.wav", "");
  add("broken.mid", "garbage");
  auto& dialog = openTab(File);
  for (const char* name : {"broken.wav", "empty.wav", "broken.mid"}) {
    choose(dialog, name);
    EXPECT_NE(textOf(dialog, "soundNote").find(name), std::string::npos) << name;
    EXPECT_FALSE(canPress(dialog, "play")) << name;
  }
  choose(dialog, "voice.wav");
  EXPECT_FALSE(isVisible(dialog, "soundNote"));
}

TEST_F(AddAudioFiles, APackedWaveIsPlayedAndAttachedAsItIs) {
  for (const char* packing : {"ms-adpcm", "mp3"}) {
    writePackedTones(source_ / "packed.wav", packing, {{440, 2500}});
    auto& dialog = openTab(File);
    choose(dialog, "packed.wav");
    EXPECT_FALSE(isVisible(dialog, "soundNote")) << textOf(dialog, "soundNote");
    EXPECT_EQ(textOf(dialog, "lblLength"), "2 Sec.") << packing;
    transport(dialog, "play");
    EXPECT_EQ(sound(dialog).mode(), Mode::Playing) << packing;
    expectAttached();
    press(dialog, "Command1");
    EXPECT_EQ(readBytes(audio("00001.wav")), readBytes(source_ / "packed.wav")) << packing;
  }
}

TEST_F(AddAudioFiles, ADoubleClickOnADamagedFileLeavesTheReason) {
  add("broken.wav", "RIFF");
  auto& dialog = openTab(File);
  choose(dialog, "broken.wav");
  auto* list = control<QListWidget>(dialog, "File1");
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                     list->visualItemRect(list->currentItem()).center());
  EXPECT_NE(textOf(dialog, "soundNote").find("broken.wav"), std::string::npos);
}

TEST_F(AddAudioFiles, ReturnAttachesTheChosenFileAndChoosesATypedFolder) {
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  typeFolder(dialog, source_);
  EXPECT_TRUE(isOpen());
  choose(dialog, "voice.wav");
  expectAttached();
  QTest::keyClick(control(dialog, "File1"), Qt::Key_Return);
  EXPECT_EQ(sounds(), Names{"00001.wav"});
}

TEST_F(AddAudioFiles, ADoubleClickPlaysTheFile) {
  auto& dialog = openTab(File);
  choose(dialog, "voice.wav");
  auto* list = control<QListWidget>(dialog, "File1");
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                     list->visualItemRect(list->currentItem()).center());
  EXPECT_EQ(sound(dialog).mode(), Mode::Playing);
}

} // namespace hearthbook::test
