#include "AlbumStart.h"
#include "BoxScript.h"
#include "CupsDaemon.h"
#include "DBeditor.h"
#include "FormControls.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "MDIForm1.h"
#include "PrintDevices.h"
#include "PrintPreview.h"
#include "PrintTexts.h"
#include "Search.h"
#include "ShellFixture.h"
#include "Text.h"
#include "Viewer.h"
#include "Wiring.h"
#include "frmPrint.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTimer>

namespace hearthbook {
namespace {

/// What the print form was, while it was open.
struct SeenPrintForm {
  QString tag;
  bool canChoose = false;
  bool canPrint = false;
  std::size_t operations = 0;
};

/// The frame as the program opens it, on an album of three photos and a desktop without printers.
class PrintCommandTest : public test::ShellTest, protected test::FormControls {
protected:
  PrintCommandTest() {
    for (const char* id : {"HD00002", "HD00003"})
      addPhoto(id, "1990");
    EXPECT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    frame = std::make_unique<MDIForm1>(album(), ShellServices());
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  void choose(const char* item) { frame->menu().item(item)->trigger(); }

  /// Opens the form, which is modal, looks at it and closes it.
  SeenPrintForm print() {
    SeenPrintForm seen;
    boxes.expectMessage(test::noPrintersText);
    QTimer glance;
    QObject::connect(&glance, &QTimer::timeout, frame.get(), [&] {
      auto* form = Forms::loaded<frmPrint>();
      if (!form || !form->isShown() || form->devices().isLooking() || form->isWaitingForPage())
        return;
      glance.stop();
      seen = look(*form);
      form->Unload();
    });
    glance.start(10);
    choose("mnuPrint");
    return seen;
  }

  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
  test::NoCupsDaemon noService;
  test::BoxScript boxes;

private:
  static SeenPrintForm look(const frmPrint& form) {
    SeenPrintForm seen{form.Tag, true, isEnabled(form, "Command4"),
                       control<PrintPreview>(form, "preview")->sheet().operations.size()};
    for (const char* choice : {"Option6", "Option7", "Option8", "Option9", "Combo2"})
      seen.canChoose = seen.canChoose && isEnabled(form, choice);
    return seen;
  }
};

TEST_F(PrintCommandTest, PrintsTheEditorsPhotoWithChoices) {
  choose("mnuBuildAlbum");
  const SeenPrintForm form = print();
  EXPECT_EQ(form.tag, QStringLiteral("Editor"));
  EXPECT_TRUE(form.canChoose);
  EXPECT_TRUE(form.canPrint);
  EXPECT_EQ(form.operations, 2u); // the heading and the photo: nobody is in it
}

TEST_F(PrintCommandTest, PrintsTheZoomViewsPhotoWithChoices) {
  frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
  press(Forms::get<Viewer>(), "Command6");
  const SeenPrintForm form = print();
  EXPECT_EQ(form.tag, QStringLiteral("Zoom"));
  EXPECT_TRUE(form.canChoose);
  EXPECT_EQ(form.operations, 2u);
}

TEST_F(PrintCommandTest, PrintsTheFilledPlacesOfAnAlbumPageWithoutChoices) {
  frame->commands().viewAlbum(0, QStringLiteral("Master Album"));
  const SeenPrintForm form = print();
  EXPECT_EQ(form.tag, QStringLiteral("Viewer"));
  EXPECT_FALSE(form.canChoose);
  EXPECT_EQ(form.operations, 3u * 3);
}

TEST_F(PrintCommandTest, PrintsTheThumbnailsOfASearchWithoutChoices) {
  choose("mnuSearch");
  press(Forms::get<Search>(), "Command1");
  const SeenPrintForm form = print();
  EXPECT_EQ(form.tag, QStringLiteral("Search"));
  EXPECT_FALSE(form.canChoose);
  EXPECT_EQ(form.operations, 3u);
}

TEST_F(PrintCommandTest, OfASearchThatHasFoundNothingYetThereIsNothingToPrint) {
  choose("mnuSearch");
  EXPECT_FALSE(print().canPrint);
}

TEST_F(PrintCommandTest, TellsFromWhereOneCanPrint) {
  boxes.expectMessage(
      QStringLiteral("You can print only from the: Build, Search, View or Zoom Album"),
      QStringLiteral("Print"), MsgIcon::Information);
  choose("mnuPrint");
  EXPECT_FALSE(Forms::loaded<frmPrint>());
}

} // namespace
} // namespace hearthbook
