#include "EditorFixture.h"

#include "FileBytes.h"

#include <QTimer>
#include <QToolButton>

#include <functional>

namespace hearthbook::test {

namespace {

/// The editor's way to the sound of a photo.
class EditorAudio : public EditorFixture {
protected:
  /// Runs when the dialog is open, then unloads it.
  static void inDialog(const std::function<void(AddAudio&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = Forms::loaded<AddAudio>();
      ASSERT_NE(dialog, nullptr);
      EXPECT_TRUE(dialog->isShown());
      act(*dialog);
      if (auto* still = Forms::loaded<AddAudio>())
        still->Unload();
    });
  }
  void attach(const std::string& name) { writeBytes(at("Audio/" + name), "sound"); }
  void expectRemoval() {
    boxes_.expectQuestion(toQString("Are you sure you want to remove audio from current photo?"),
                          toQString("Remove Audio"), MsgIcon::Information, MsgButtons::OkCancel,
                          MsgAnswer::Ok);
  }
};

} // namespace

TEST_F(EditorAudio, TheIconAndTheCaptionBothOpenAddAudioForThePhoto) {
  const auto& editor = openEditor();
  int opened = 0;
  for (const char* name : {"Image2", "Label5"}) {
    inDialog([&](const AddAudio& dialog) {
      ++opened;
      EXPECT_EQ(dialog.Tag, toQString("picture")) << name;
    });
    press(editor, name);
  }
  EXPECT_EQ(opened, 2);
}

TEST_F(EditorAudio, TheCaptionTellsWhatTheDialogHasDone) {
  attach("00001.wav");
  const auto& editor = openEditor();
  EXPECT_EQ(labelOf(editor, "Label5"), "Update Audio");
  inDialog([&](const AddAudio& dialog) {
    expectRemoval();
    FormControls::press(dialog, "Command5");
    EXPECT_EQ(labelOf(editor, "Label5"), "Add Audio");
  });
  press(editor, "Image2");
  EXPECT_FALSE(std::filesystem::exists(at("Audio/00001.wav")));
}

TEST_F(EditorAudio, TheSoundIsThatOfThePhotoOnTheScreen) {
  folder_.addPhoto("HD00002");
  attach("00001.wav");
  attach("00002.wav");
  const auto& editor = openEditor();
  press(editor, "NextPhoto");
  inDialog([&](const AddAudio& dialog) {
    expectRemoval();
    FormControls::press(dialog, "Command5");
  });
  press(editor, "Image2");
  EXPECT_TRUE(std::filesystem::exists(at("Audio/00001.wav")));
  EXPECT_FALSE(std::filesystem::exists(at("Audio/00002.wav")));
}

TEST_F(EditorAudio, AScreenReaderSaysWhatTheIconDoes) {
  attach("00001.wav");
  const auto& editor = openEditor();
  EXPECT_EQ(control(editor, "Image2")->accessibleName(), toQString("Update Audio"));
}

TEST_F(EditorAudio, WithoutAPhotoThereIsNothingToAttachTo) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  const auto& editor = openEditor();
  EXPECT_FALSE(isEnabled(editor, "Image2"));
  EXPECT_FALSE(isEnabled(editor, "Label5"));
  press(editor, "Label5");
  EXPECT_EQ(Forms::loaded<AddAudio>(), nullptr);
}

} // namespace hearthbook::test
