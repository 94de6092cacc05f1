#include "AddAudioFixture.h"
#include "ControlChecks.h"

#include <QToolButton>

namespace hearthbook::test {

namespace {

const Control addAudioControls[] = {
    {"TabStrip1", "QTabBar"},
    {"fromMic", "QGroupBox", "Start Your Recording"},
    {"FromCD", "QGroupBox", "CD Player"},
    {"fromFile", "QGroupBox", "Select wave or midi file to be attached"},
    {"MMControl1", "hearthbook::SoundTransport"},
    {"MMControl2", "hearthbook::SoundTransport"},
    {"frameQuality", "QGroupBox", "Quality"},
    {"Option1", "QRadioButton", "11,025 Hz, 8 Bit, Mono Smaller File"},
    {"Option2", "QRadioButton", "22,050 Hz, 16 Bit, Stereo - Larger File"},
    {"Drive1", "QComboBox"},
    {"Dir1", "QTreeView"},
    {"File1", "QListWidget"},
    {"Label1", "QLabel", "File Size: "},
    {"Frame1", "QGroupBox", "Recording Length"},
    {"lblLength", "QLabel", "0 Sec."},
    {"Frame2", "QGroupBox", "Aprox. File Size"},
    {"lblSize", "QLabel", "0k"},
    {"lblRec", "QLabel", "Recording"},
    {"Command1", "QPushButton", "Attach Audio File"},
    {"Command2", "QPushButton", "Close"},
    {"Command3", "QPushButton", "Remove Audio"},
    {"Command4", "QPushButton", "Attach Recording"},
    {"Command5", "QPushButton", "Remove Audio"},
    {"Command6", "QPushButton", "Close"},
    {"Command7", "QToolButton"},
    {"Command8", "QToolButton"},
};

class AddAudioControls : public AddAudioFixture {
  NoSoundDaemon noSound_;
};

} // namespace

TEST_F(AddAudioControls, AddAudioHasEachOfItsControlsOnce) {
  const auto& dialog = Forms::get<AddAudio>();
  EXPECT_EQ(dialog.caption(), toQString("Add Audio"));
  expectControls(dialog, "Add Audio", addAudioControls);
}

TEST_F(AddAudioControls, TheTabsStandInTheirOrder) {
  const auto* tabs = control<QTabBar>(Forms::get<AddAudio>(), "TabStrip1");
  ASSERT_EQ(tabs->count(), 3);
  EXPECT_EQ(tabs->tabText(0), toQString("Add From Mic. or Line-In"));
  EXPECT_EQ(tabs->tabText(1), toQString("Add From CD Player"));
  EXPECT_EQ(tabs->tabText(2), toQString("Add From File"));
}

TEST_F(AddAudioControls, TabReachesEveryControlOfEachTabBothWays) {
  attach("00001.wav", silentWave(lowQuality, 60'000));
  for (const Tab tab : {Microphone, Disc, File}) {
    auto& dialog = openTab(tab);
    expectTabReachesAll(dialog, control(dialog, "TabStrip1"));
    dialog.Unload();
  }
}

TEST_F(AddAudioControls, ButtonsWithoutATextSayWhatTheyDo) {
  const auto& dialog = open();
  const auto* tabs = control(dialog, "TabStrip1");
  for (const auto* button : dialog.findChildren<QToolButton*>()) {
    if (tabs->isAncestorOf(button))
      continue; // an arrow of the style's own
    EXPECT_FALSE(button->accessibleName().isEmpty()) << toUtf8(button->objectName());
    EXPECT_FALSE(button->toolTip().isEmpty()) << toUtf8(button->objectName());
  }
}

TEST_F(AddAudioControls, EveryTabFitsASmallScreen) {
  for (const Tab tab : {Microphone, Disc, File}) {
    const auto& dialog = openTab(tab);
    EXPECT_LE(dialog.minimumSizeHint().width(), 1000) << tab;
    EXPECT_LE(dialog.minimumSizeHint().height(), 700) << tab;
    Forms::get<AddAudio>().Unload();
  }
}

} // namespace hearthbook::test
