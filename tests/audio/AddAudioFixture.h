#pragma once

#include "AddAudio.h"
#include "AlbumFixture.h"
#include "AudioOwner.h"
#include "BoxScript.h"
#include "FileBytes.h"
#include "FormControls.h"
#include "Forms.h"
#include "QtPrint.h"
#include "SoundDaemon.h"
#include "SoundTransport.h"
#include "TestSounds.h"
#include "Text.h"
#include "WaitFor.h"
#include "WaveFile.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>

#include <algorithm>
#include <fstream>
#include <vector>

namespace hearthbook::test {

/// Add Audio for the photo HD00001, as the editor opens it, and a folder of sounds.
class AddAudioFixture : public AlbumFixture, protected FormControls, private AudioOwner {
protected:
  using Mode = MMControl::Mode;
  enum Tab { Microphone, Disc, File };

  AddAudioFixture() {
    std::filesystem::create_directories(source_);
    vars().LastSoundFolder = source_;
    Forms::provide<AddAudio>([this] { return new AddAudio(album(), pool_); });
  }
  ~AddAudioFixture() override { Forms::reset(); }

  AddAudio& open(const char* tag = "picture") {
    auto& dialog = Forms::get<AddAudio>();
    dialog.Tag = toQString(tag);
    dialog.setOwner(this);
    dialog.Show();
    QCoreApplication::processEvents();
    return dialog;
  }
  AddAudio& openTab(Tab tab) {
    auto& dialog = open();
    chooseTab(dialog, tab);
    return dialog;
  }
  static void chooseTab(AddAudio& dialog, Tab tab) {
    control<QTabBar>(dialog, "TabStrip1")->setCurrentIndex(tab);
    EXPECT_TRUE(waitFor([&] { return !dialog.isReading(); }));
  }
  /// Another album than the first of the list, so that its id counts and not its place.
  void addAlbums() {
    folder_.addRow("SubAlbums", {{"AlbumID", 3}, {"AlbumName", "Anna"}});
    folder_.addRow("SubAlbums", {{"AlbumID", 7}, {"AlbumName", "Lake"}});
    data().rsSubAlbums.Requery();
    data().rsSubAlbums.MoveLast();
  }

  static void choose(AddAudio& dialog, const char* file) {
    auto* list = control<QListWidget>(dialog, "File1");
    const auto found = list->findItems(toQString(file), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << file;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found.front()).center());
  }
  static void press(const AddAudio& dialog, const char* name) { FormControls::press(dialog, name); }
  /// Presses a button of the recorder, or of the disc player.
  static void transport(const AddAudio& dialog, const char* button,
                        const char* player = "MMControl1") {
    auto* pressed = control<QWidget>(*control(dialog, player), button);
    ASSERT_TRUE(pressed->isEnabled()) << button;
    QTest::mouseClick(pressed, Qt::LeftButton);
  }
  static bool canPress(const AddAudio& dialog, const char* button,
                       const char* player = "MMControl1") {
    return control<QWidget>(*control(dialog, player), button)->isEnabled();
  }
  static MMControl& sound(const AddAudio& dialog) {
    return control<SoundTransport>(dialog, "MMControl1")->control();
  }
  static MMControl& disc(const AddAudio& dialog) {
    return control<SoundTransport>(dialog, "MMControl2")->control();
  }
  static std::string textOf(const AddAudio& dialog, const char* label) {
    return toUtf8(control<QLabel>(dialog, label)->text());
  }
  static std::string titleOf(const AddAudio& dialog, const char* frame) {
    return toUtf8(control<QGroupBox>(dialog, frame)->title());
  }
  static bool isVisible(const AddAudio& dialog, const char* name) {
    return control(dialog, name)->isVisible();
  }
  static bool isChosen(const AddAudio& dialog, const char* option) {
    return control<QRadioButton>(dialog, option)->isChecked();
  }
  static bool isOpen() { return Forms::loaded<AddAudio>() != nullptr; }

  void expectRemoval(const char* what, MsgAnswer answer) {
    boxes_.expectQuestion(toQString(std::string("Are you sure you want to remove audio from "
                                                "current ") +
                                    what + "?"),
                          toQString("Remove Audio"), MsgIcon::Information, MsgButtons::OkCancel,
                          answer);
  }
  void expectClosing(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("Are you sure you want to close? Changes will not be saved"),
                          toQString("Remove Audio"), MsgIcon::Information, MsgButtons::OkCancel,
                          answer);
  }
  void expectAttached() {
    boxes_.expectMessage(toQString("Audio File Attached Successfully"), toQString("Add Audio"));
  }
  void expectRecordingAttached() {
    boxes_.expectMessage(toQString("Recorded Wave File Attached Successfully"),
                         toQString("Add Audio"));
  }
  void expectRefusal(const char* text) {
    boxes_.expectMessage(toQString(text), toQString("Add Audio"), MsgIcon::Exclamation);
  }
  void expectLoss(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("The recording is not attached yet. It will be lost."),
                          toQString("Add Audio"), MsgIcon::Exclamation, MsgButtons::OkCancel,
                          answer);
  }

  std::filesystem::path audio(const std::string& name) const { return at("Audio/" + name); }
  std::filesystem::path attach(const std::string& name, const std::string& bytes) {
    writeBytes(audio(name), bytes);
    return audio(name);
  }
  void add(const std::string& name, const std::string& bytes) { writeBytes(source_ / name, bytes); }
  /// What lies in Audio beside the templates.
  std::vector<std::string> sounds() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(at("Audio")))
      if (const auto name = entry.path().filename().string(); !name.ends_with("Bit.wav"))
        names.push_back(name);
    std::ranges::sort(names);
    return names;
  }
  static WaveInfo infoOf(const std::filesystem::path& wave) {
    std::ifstream file(wave, std::ios::binary);
    return readWaveInfo(file);
  }

  std::filesystem::path source_ = at("Source");
  std::vector<bool> told_; ///< what the owner was told
  WorkPool pool_{2};
  BoxScript boxes_;

private:
  void soundChanged(bool attached) override { told_.push_back(attached); }
};

} // namespace hearthbook::test
