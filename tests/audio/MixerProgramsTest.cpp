#include "AddAudioFixture.h"

#include "ScopedVariable.h"

#include <utility>

namespace hearthbook::test {

namespace {

/// A desktop with exactly those programs that a test puts there.
class MixerPrograms : public AddAudioFixture {
protected:
  MixerPrograms() { std::filesystem::create_directories(programs_); }

  /// A program that writes down what it was told.
  void install(const std::string& name) {
    const auto told = (at(name + ".told")).string();
    writeBytes(programs_ / name, "#!/bin/sh\necho \"$@\" > '" + told + ".part'\nexec /bin/mv '" +
                                     told + ".part' '" + told + "'\n");
    std::filesystem::permissions(programs_ / name, std::filesystem::perms::owner_all);
  }
  std::string toldTo(const std::string& name) {
    const auto told = at(name + ".told");
    EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(told); })) << name;
    return readBytes(told);
  }

  std::filesystem::path programs_ = at("Programs");
  ScopedVariable path_{"PATH", programs_.string()};
  NoSoundDaemon noSound_;
};

} // namespace

TEST_F(MixerPrograms, TheDesktopsMixerIsStartedForLoudspeakersAndForMicrophones) {
  install("pavucontrol");
  const auto& dialog = open();
  for (const auto& [button, told] :
       {std::pair("Command7", "--tab=3\n"), std::pair("Command8", "--tab=4\n")}) {
    std::filesystem::remove(at("pavucontrol.told"));
    press(dialog, button);
    EXPECT_EQ(toldTo("pavucontrol"), told);
  }
}

TEST_F(MixerPrograms, WhileItRecordsThePageOfTheRunningRecordingsIsShown) {
  install("pavucontrol");
  const auto& dialog = open();
  {
    const ScopedVariable path("PATH", programs_.string() + ":/usr/bin:/bin");
    const SoundDaemon daemon;
    transport(dialog, "record");
    ASSERT_TRUE(waitFor([&] { return sound(dialog).length() > 0; }));
    press(dialog, "Command8");
    EXPECT_EQ(toldTo("pavucontrol"), "--tab=2\n");
    transport(dialog, "stop");
  }
  std::filesystem::remove(at("pavucontrol.told"));
  press(dialog, "Command8");
  EXPECT_EQ(toldTo("pavucontrol"), "--tab=4\n");
}

TEST_F(MixerPrograms, AnotherMixerDoes) {
  install("mate-volume-control");
  press(open(), "Command7");
  EXPECT_EQ(toldTo("mate-volume-control"), "\n");
}

TEST_F(MixerPrograms, WithoutAMixerTheUserIsTold) {
  const auto& dialog = open();
  boxes_.expectMessage(
      toQString("System playback mixer could not be found, please run it manualy."), {},
      MsgIcon::Critical);
  press(dialog, "Command7");
  boxes_.expectMessage(
      toQString("System recording mixer could not be found, please run it manualy."), {},
      MsgIcon::Critical);
  press(dialog, "Command8");
}

TEST_F(MixerPrograms, AMixerThatCannotBeStartedIsNone) {
  writeBytes(programs_ / "pavucontrol", "#!/nowhere/at/all\n");
  std::filesystem::permissions(programs_ / "pavucontrol", std::filesystem::perms::owner_all);
  const auto& dialog = open();
  boxes_.expectMessage(
      toQString("System playback mixer could not be found, please run it manualy."), {},
      MsgIcon::Critical);
  press(dialog, "Command7");
}

} // namespace hearthbook::test
