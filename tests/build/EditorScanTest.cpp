#include "EditorFixture.h"
#include "FileBytes.h"
#include "MarkLayer.h"
#include "PagePlaces.h"
#include "PhotoFiles.h"
#include "TestPictures.h"

#include <gmock/gmock.h>

#include <QTimer>

namespace hearthbook::test {

namespace {

using testing::ElementsAre;
namespace fs = std::filesystem;

class EditorScan : public EditorFixture {
protected:
  /// What the user does in the form, once it is shown and waits.
  void inScan(std::function<void(Scan&)> act) {
    QTimer::singleShot(0, QCoreApplication::instance(), [this, act = std::move(act)] {
      waitUntil([] {
        const auto* scan = Forms::loaded<Scan>();
        return scan && scan->isVisible() && !scan->isBusy();
      });
      act(Forms::get<Scan>());
      ++acted_;
    });
  }
  static void pressAndWait(Scan& scan, const char* name) {
    FormControls::press(scan, name);
    waitUntil([] {
      const auto* loaded = Forms::loaded<Scan>();
      return !loaded || !loaded->isBusy();
    });
  }
  static void select(const Scan& scan) {
    auto* layer = control<MarkLayer>(scan, "NotX1");
    QTest::keyClick(layer, Qt::Key_A, Qt::ControlModifier);
  }
  void willSend(const Picture& page) { scanner_.scripted.push_back(FakeScanner::pageOf(page)); }

  int acted_ = 0;
};

} // namespace

TEST_F(EditorScan, AddFromScannerAddsPhotosAndTheEditorShowsTheLast) {
  const auto& editor = openEditor();
  willSend(grainy({300, 200}));
  inScan([&](Scan& scan) {
    EXPECT_EQ(editor.Tag, toQString("Scan"));
    select(scan);
    pressAndWait(scan, "Command1");
    select(scan);
    pressAndWait(scan, "Command1");
    scan.Unload();
  });
  press(editor, "Command13");
  EXPECT_EQ(acted_, 1);
  EXPECT_EQ(labelOf(editor, "NumRec"), "3 of 3");
  EXPECT_EQ(currentId(), "HD00003");
  EXPECT_THAT(namesIn(at("Photos")), ElementsAre("00001.jpg", "00002.jpg", "00003.jpg"));
}

TEST_F(EditorScan, EditImageUpdatesThePhotoAndTheEditorShowsIt) {
  addPhotosUpTo(2);
  writeBytes(at("Photos/00001.jpg"), jpegOf(plain({300, 200}, red)));
  photos().MoveFirst();
  const auto& editor = openEditor();
  const auto shown = [&] { return control<PictureBox>(editor, "Image1")->picture(); };
  EXPECT_GT(shown().width(), shown().height());
  inScan([&](Scan& scan) {
    EXPECT_EQ(editor.Tag, toQString("edit"));
    pressAndWait(scan, "Command4");
    pressAndWait(scan, "Command1");
  });
  press(editor, "Command14");
  EXPECT_EQ(acted_, 1);
  EXPECT_LT(shown().width(), shown().height());
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 2");
}

TEST_F(EditorScan, EditImageMeansThePhotoOfTheEditorWhateverWasLookedUpLast) {
  addPhotosUpTo(2);
  writeBytes(at("Photos/00001.jpg"), jpegOf(plain({300, 200}, red)));
  photos().MoveFirst();
  const auto& editor = openEditor();
  resolveImage(album(), "HD00002");
  inScan([](Scan& scan) {
    EXPECT_EQ(scan.page().picture().size().width, 300);
    scan.Unload();
  });
  press(editor, "Command14");
  EXPECT_EQ(acted_, 1);
}

TEST_F(EditorScan, APhotoOnADiscIsNotEdited) {
  folder_.addPhoto("CD00001");
  photos().MoveFirst();
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("Sorry, can't edit image from CD-ROM!"), toQString("Edit Image"),
                       MsgIcon::Critical);
  press(editor, "Command14");
  EXPECT_EQ(currentId(), "CD00001");
  EXPECT_EQ(Forms::loaded<Scan>(), nullptr);
}

TEST_F(EditorScan, WhatWasCutOutCountsForTheNextNumber) {
  addPhotosUpTo(2);
  writeBytes(at("Photos/00001.jpg"), jpegOf(plain({300, 200}, red)));
  photos().MoveFirst();
  const auto& editor = openEditor();
  inScan([](Scan& scan) {
    select(scan);
    pressAndWait(scan, "Command7");
    scan.Unload();
  });
  press(editor, "Command14");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 3");
  EXPECT_EQ(currentId(), "HD00001");
  willSend(grainy({300, 200}));
  inScan([](Scan& scan) {
    select(scan);
    pressAndWait(scan, "Command1");
    scan.Unload();
  });
  press(editor, "Command13");
  EXPECT_EQ(currentId(), "HD00004");
  EXPECT_EQ(acted_, 2);
}

TEST_F(EditorScan, WhatIsTypedIsKeptWhileThePhotoIsEdited) {
  const auto& editor = openEditor();
  QTest::keyClicks(control(editor, "Year"), toQString("1987"));
  inScan([](Scan& scan) { scan.Unload(); });
  press(editor, "Command14");
  press(editor, "Command6");
  EXPECT_EQ(stored("HD00001", "Year").toText(), "1987");
}

TEST_F(EditorScan, OnASelectionOfPhotosNothingIsScannedButPhotosAreEdited) {
  addPhotosUpTo(3);
  photos().Open("SELECT * FROM PhotoAlbum WHERE PictureID > 'HD00001' ORDER BY PictureID");
  const auto& editor = openEditor();
  EXPECT_FALSE(isEnabled(editor, "Command13"));
  EXPECT_TRUE(isEnabled(editor, "Command14"));
}

TEST_F(EditorScan, WithoutAPhotoThereIsNothingToEdit) {
  data().AlbumDB.execute("DELETE FROM PhotoAlbum");
  photos().Requery();
  const auto& editor = openEditor();
  EXPECT_TRUE(isEnabled(editor, "Command13"));
  EXPECT_FALSE(isEnabled(editor, "Command14"));
}

} // namespace hearthbook::test
