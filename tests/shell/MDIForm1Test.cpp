#include "MDIForm1.h"

#include "AddSubAlbum.h"
#include "AlbumStart.h"
#include "BoxScript.h"
#include "DBeditor.h"
#include "FileBytes.h"
#include "FlexGrid.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "PictureCommand.h"
#include "Progress.h"
#include "ShellFixture.h"
#include "Startup.h"
#include "Text.h"
#include "Viewer.h"
#include "Wiring.h"
#include "Zoom.h"
#include "frmAbout.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace hearthbook {
namespace {

/// Answers messages and notes whether Progress was there then.
class LookBehindTheMessage : public BoxPlayer {
public:
  LookBehindTheMessage() : former_(BoxPlayer::install(this)) {}
  ~LookBehindTheMessage() override { BoxPlayer::install(former_); }
  LookBehindTheMessage(const LookBehindTheMessage&) = delete;
  LookBehindTheMessage& operator=(const LookBehindTheMessage&) = delete;

  MsgAnswer message(const QString&, const QString&, MsgIcon, MsgButtons) override {
    progressWasLoaded.push_back(Forms::loaded<Progress>());
    return MsgAnswer::Ok;
  }
  QString input(const QString&, const QString&, const QString&) override { return {}; }

  std::vector<bool> progressWasLoaded;

private:
  BoxPlayer* former_;
};

class MDIForm1Test : public test::ShellTest {
protected:
  void SetUp() override {
    addSubAlbum(7, "Lake", {"HD00001"});
    addSubAlbum(3, "Birthday", {});
  }

  /// The frame as the program opens it.
  void openFrame() {
    ASSERT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
    services.openDocument = [this](const std::filesystem::path& document) {
      documents.push_back(document);
      return desktopAnswers;
    };
    frame = std::make_unique<MDIForm1>(album(), services);
    wiring = std::make_unique<Wiring>(album(), *frame);
    frame->open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  }

  /// Caption and Tag of the album pages; empty where there are none.
  static QStringList shownPages() {
    const auto* viewer = Forms::loaded<Viewer>();
    return viewer && viewer->isShown() ? QStringList{viewer->caption(), viewer->Tag}
                                       : QStringList();
  }

  QAction* item(const char* name) { return frame->menu().item(name); }

  static QStringList openForms() {
    QStringList names;
    for (const Form* form : Forms::open())
      names << form->name();
    return names;
  }

  ShellServices services;
  std::vector<std::filesystem::path> documents;
  bool desktopAnswers = true;
  std::unique_ptr<MDIForm1> frame;
  std::unique_ptr<Wiring> wiring;
  test::BoxScript boxes;
};

TEST_F(MDIForm1Test, OpensWithTheStartScreenAndItsTitle) {
  openFrame();

  EXPECT_EQ(frame->windowTitle(), QStringLiteral("Hearthbook"));
  EXPECT_EQ(openForms(), QStringList{QStringLiteral("Startup")});
  EXPECT_EQ(frame->activeForm(), &Forms::get<Startup>());
  EXPECT_TRUE(Forms::get<Startup>().isVisible());
}

TEST_F(MDIForm1Test, EverySubAlbumHasItsEntry) {
  openFrame();

  QStringList names;
  for (const QAction* entry : frame->menu().menu("mnuView").actions())
    names << entry->text();
  EXPECT_EQ(names, (QStringList{QStringLiteral("Master Album"), QStringLiteral("Birthday"),
                                QStringLiteral("Lake")}));
  EXPECT_EQ(frame->menu().album(7)->text(), QStringLiteral("Lake"));
}

TEST_F(MDIForm1Test, AnAlbumMadeWhileTheProgramRunsGetsItsEntry) {
  openFrame();
  Navigator& navigator = *frame;

  navigator.addAlbumEntry(9, QStringLiteral("Cats"));
  EXPECT_EQ(frame->menu().album(9)->text(), QStringLiteral("Cats"));
  navigator.renameAlbumEntry(9, QStringLiteral("Dogs"));
  EXPECT_EQ(frame->menu().album(9)->text(), QStringLiteral("Dogs"));
  navigator.removeAlbumEntry(9);
  EXPECT_FALSE(frame->menu().album(9));
}

TEST_F(MDIForm1Test, BuildAlbumOpensTheEditorWithItsOddCaption) {
  openFrame();

  item("mnuBuildAlbum")->trigger();

  EXPECT_EQ(Forms::get<DBeditor>().caption(), QStringLiteral("Builing Master Album"));
  EXPECT_EQ(frame->activeForm(), &Forms::get<DBeditor>());
  EXPECT_EQ(album().vars.CallerForm, "DBeditor");
}

TEST_F(MDIForm1Test, BuildOfTheStartScreenSpellsItRight) {
  openFrame();

  frame->commands().buildFromStart();

  EXPECT_EQ(Forms::get<DBeditor>().caption(), QStringLiteral("Building Master Album"));
}

TEST_F(MDIForm1Test, BuildAlbumClosesTheWorkFormsFirst) {
  openFrame();
  item("mnuBuildAlbum")->trigger();
  const QPointer<DBeditor> former(&Forms::get<DBeditor>());

  item("mnuBuildAlbum")->trigger();

  EXPECT_NE(&Forms::get<DBeditor>(), former.data());
}

TEST_F(MDIForm1Test, AnAlbumIsShownAsOpened) {
  openFrame();

  frame->menu().album(7)->trigger();

  EXPECT_EQ(shownPages(),
            (QStringList{QStringLiteral("Viewing Album: Lake"), QStringLiteral("7")}));
  EXPECT_EQ(frame->activeForm(), Forms::loaded<Viewer>());
  EXPECT_EQ(album().vars.chosenAlbum.id, 7);
  EXPECT_EQ(album().vars.chosenAlbum.name, "Lake");
  EXPECT_FALSE(Forms::loaded<Progress>());
}

TEST_F(MDIForm1Test, TheStartScreenOpensAnAlbumUnderTheTextOfItsRow) {
  openFrame();
  auto& start = Forms::get<Startup>();
  QTest::mouseClick(start.findChild<PictureCommand*>(QStringLiteral("Image5")), Qt::LeftButton);
  auto& albums = *start.findChild<FlexGrid*>(QStringLiteral("MSFlexGrid1"));

  albums.setRow(1);
  QTest::keyClick(&albums, Qt::Key_Return);

  EXPECT_EQ(shownPages(),
            (QStringList{QStringLiteral("Viewing Album: Master Album"), QStringLiteral("0")}));
  EXPECT_EQ(album().vars.chosenAlbum.name, "Master Album");
  EXPECT_FALSE(albums.isVisible());
  EXPECT_FALSE(Forms::loaded<Progress>());
}

TEST_F(MDIForm1Test, AnEmptyAlbumLeavesThePickerOfTheStartScreenOpen) {
  openFrame();
  auto& start = Forms::get<Startup>();
  QTest::mouseClick(start.findChild<PictureCommand*>(QStringLiteral("Image5")), Qt::LeftButton);
  auto& albums = *start.findChild<FlexGrid*>(QStringLiteral("MSFlexGrid1"));
  boxes.expectMessage(
      QStringLiteral("There are no photos in this album\nPlease select another one."),
      QStringLiteral("View Album"));

  albums.setRow(2);
  QTest::keyClick(&albums, Qt::Key_Return);

  EXPECT_TRUE(boxes.isDone());
  EXPECT_TRUE(shownPages().isEmpty());
  EXPECT_TRUE(albums.isVisible());
  EXPECT_EQ(album().vars.chosenAlbum.id, 3);
}

TEST_F(MDIForm1Test, AnEmptyAlbumLeavesTheStartScreenWithEveryWorkFormClosed) {
  openFrame();
  item("mnuBuildAlbum")->trigger();
  boxes.expectMessage(
      QStringLiteral("There are no photos in this album\nPlease select another one."),
      QStringLiteral("View Album"));

  frame->menu().album(3)->trigger();

  EXPECT_TRUE(boxes.isDone());
  EXPECT_TRUE(shownPages().isEmpty());
  EXPECT_EQ(openForms(), QStringList{QStringLiteral("Startup")});
  EXPECT_EQ(frame->activeForm(), &Forms::get<Startup>());
}

TEST_F(MDIForm1Test, OpeningAnAlbumIsShownUnderItsCaptionUntilTheMessage) {
  openFrame();
  QStringList shownAs;
  Forms::provide<Progress>([&shownAs] {
    auto* progress = new Progress;
    QObject::connect(progress->findChild<QProgressBar*>(), &QProgressBar::valueChanged, progress,
                     [&shownAs, progress] {
                       shownAs << (progress->isShown() ? progress->caption() : QString());
                     });
    return progress;
  });
  LookBehindTheMessage message;

  frame->menu().album(3)->trigger();

  shownAs.removeDuplicates();
  EXPECT_EQ(shownAs, QStringList{QStringLiteral("Processing Album, Please Wait")});
  EXPECT_EQ(message.progressWasLoaded, std::vector<bool>{false});
}

/// Notes under which caption it is closed, and does its own work under Progress then.
class BusyAtItsEnd : public Form {
public:
  explicit BusyAtItsEnd(QString& seen)
      : Form(QStringLiteral("BusyAtItsEnd"), Kind::Work), seen_(seen) {}

protected:
  bool unloading() override {
    if (const auto* progress = Forms::loaded<Progress>(); progress && progress->isShown())
      seen_ = progress->caption();
    auto& own = Forms::get<Progress>();
    own.setCaption(QStringLiteral("Something else"));
    own.Unload();
    return true;
  }

private:
  QString& seen_;
};

TEST_F(MDIForm1Test, TheProgressOfAnAlbumIsThereBeforeTheWorkFormsClose) {
  openFrame();
  QString seen;
  Forms::provide<BusyAtItsEnd>([&seen] { return new BusyAtItsEnd(seen); });
  Forms::get<BusyAtItsEnd>().Show();

  frame->menu().album(7)->trigger();

  EXPECT_EQ(seen, QStringLiteral("Processing Album, Please Wait"));
  EXPECT_FALSE(shownPages().isEmpty());
  EXPECT_FALSE(Forms::loaded<Progress>());
}

TEST_F(MDIForm1Test, AnAlbumThatCannotBeOpenedLeavesNoProgress) {
  openFrame();
  album().data.AlbumDB.execute("DROP TABLE SubAlbumPhotos");
  boxes.expectFailure(QStringLiteral("SubAlbumPhotos"));

  frame->menu().album(7)->trigger();

  EXPECT_TRUE(boxes.isDone());
  EXPECT_FALSE(Forms::loaded<Progress>());
}

TEST_F(MDIForm1Test, ASecondStartBringsTheMinimisedFrameForward) {
  openFrame();
  frame->showMinimized();
  QWidget other;
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
  ASSERT_TRUE(frame->isMinimized());

  frame->bringForward();

  EXPECT_FALSE(frame->isMinimized());
  EXPECT_TRUE(frame->isMaximized());
  EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
}

TEST_F(MDIForm1Test, OnlyASubAlbumIsEditedAsOneFromItsPages) {
  openFrame();
  const auto edit = [] {
    return Forms::get<Viewer>().findChild<QPushButton*>(QStringLiteral("Command5"));
  };
  frame->menu().album(0)->trigger();
  EXPECT_FALSE(edit()->isEnabled());
  frame->menu().album(7)->trigger();
  EXPECT_TRUE(edit()->isEnabled());
  QString task;
  QTimer::singleShot(0, frame.get(), [&task] {
    task = Forms::get<AddSubAlbum>().Tag;
    Forms::get<AddSubAlbum>().Unload();
  });
  edit()->click();
  EXPECT_EQ(task, QStringLiteral("Viewer"));
  EXPECT_EQ(frame->activeForm(), Forms::loaded<Viewer>());
}

TEST_F(MDIForm1Test, AnAlbumsPhotoIsShownLargeUnderTheAlbumsName) {
  openFrame();
  frame->menu().album(7)->trigger();

  Forms::get<Viewer>().findChild<QPushButton*>(QStringLiteral("Command6"))->click();

  EXPECT_EQ(frame->activeForm(), Forms::loaded<Zoom>());
  EXPECT_EQ(Forms::get<Zoom>().caption(), QStringLiteral("Full Size View: Lake"));
}

TEST_F(MDIForm1Test, TheMasterAlbumHasACaptionOfItsOwnInTheMenu) {
  openFrame();

  frame->menu().album(0)->trigger();

  EXPECT_EQ(shownPages(),
            (QStringList{QStringLiteral("Viewing Master Album"), QStringLiteral("0")}));
}

TEST_F(MDIForm1Test, AnotherAlbumTakesThePlaceOfTheOneBefore) {
  openFrame();
  frame->menu().album(0)->trigger();
  const QPointer<Viewer> former(&Forms::get<Viewer>());

  frame->commands().viewFromStart(7, QStringLiteral("Lake"), [] {});

  EXPECT_NE(Forms::loaded<Viewer>(), former.data());
  EXPECT_EQ(shownPages().value(0), QStringLiteral("Viewing Album: Lake"));
}

TEST_F(MDIForm1Test, GettingStartedOpensTheGuide) {
  openFrame();
  const auto guide = folder().root() / "help" / "index.html";
  test::writeBytes(guide, "<html>");

  item("mnuStart")->trigger();

  EXPECT_EQ(documents, std::vector<std::filesystem::path>{guide});
}

TEST_F(MDIForm1Test, AMissingGuideIsNamed) {
  openFrame();
  const auto guide = folder().root() / "help" / "index.html";
  std::filesystem::remove(guide);
  boxes.expectMessage(toQString("The guide could not be found:\n" + guide.string()), {},
                      MsgIcon::Exclamation);

  item("mnuStart")->trigger();

  EXPECT_TRUE(documents.empty());
}

TEST_F(MDIForm1Test, ADesktopThatCannotShowTheGuideIsTold) {
  openFrame();
  desktopAnswers = false;
  const auto guide = folder().root() / "help" / "index.html";
  test::writeBytes(guide, "<html>");
  boxes.expectMessage(toQString("The desktop has no program to show the guide:\n" + guide.string()),
                      {}, MsgIcon::Exclamation);

  item("mnuStart")->trigger();
}

TEST_F(MDIForm1Test, AboutTellsNameAndVersionAndClosesOnOk) {
  openFrame();
  QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
  QStringList texts;
  QTimer::singleShot(0, frame.get(), [&texts] {
    auto& about = Forms::get<frmAbout>();
    texts << about.caption();
    for (const QLabel* label : about.findChildren<QLabel*>())
      texts << label->text();
    about.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
  });

  item("mnuAbout")->trigger();

  EXPECT_TRUE(texts.contains(QStringLiteral("About Hearthbook")));
  EXPECT_TRUE(texts.contains(QStringLiteral("Hearthbook")));
  EXPECT_TRUE(texts.contains(QStringLiteral("Version 1.2.3")));
  EXPECT_FALSE(Forms::loaded<frmAbout>());
}

TEST_F(MDIForm1Test, QuitMakesTheClosingBackup) {
  openFrame();

  item("mnuQuit")->trigger();

  EXPECT_FALSE(frame->isVisible());
  EXPECT_TRUE(fileExists(backup()));
  EXPECT_TRUE(fileExists(live()));
}

TEST_F(MDIForm1Test, ClosingTheWindowClosesTheWorkForms) {
  openFrame();
  item("mnuBuildAlbum")->trigger();

  EXPECT_TRUE(frame->close());

  EXPECT_EQ(openForms(), QStringList{QStringLiteral("Startup")});
  EXPECT_TRUE(fileExists(backup()));
}

TEST_F(MDIForm1Test, AnAlbumThatCannotBeReadAnyMoreIsToldOnceAndTheProgramEnds) {
  openFrame();
  item("mnuBuildAlbum")->trigger();
  album().data.AlbumDB.execute("DROP TABLE Appearances");
  boxes.expectFailure(QStringLiteral("Appearances"));

  EXPECT_TRUE(frame->close());

  EXPECT_TRUE(boxes.isDone());
  EXPECT_FALSE(frame->isVisible());
}

/// A form that does not let itself be closed.
class Stubborn : public Form {
public:
  Stubborn() : Form(QStringLiteral("Stubborn"), Kind::Work) {}
  bool refuses = true;

protected:
  bool unloading() override { return !refuses; }
};

TEST_F(MDIForm1Test, AFormThatRefusesKeepsTheProgramOpen) {
  openFrame();
  Forms::provide<Stubborn>([] { return new Stubborn; });
  Forms::get<Stubborn>().Show();

  frame->menu().album(7)->trigger();
  EXPECT_TRUE(shownPages().isEmpty());
  EXPECT_FALSE(Forms::loaded<Progress>());

  EXPECT_FALSE(frame->close());
  EXPECT_TRUE(frame->isVisible());
  EXPECT_FALSE(fileExists(backup()));
  EXPECT_TRUE(album().data.AlbumDB.isOpen());

  Forms::get<Stubborn>().refuses = false;
  EXPECT_TRUE(frame->close());
  EXPECT_TRUE(fileExists(backup()));
}

TEST_F(MDIForm1Test, AFrameThatNeverOpenedAnAlbumMakesNoBackup) {
  MDIForm1 unopened(album(), {});

  EXPECT_TRUE(unopened.close());

  EXPECT_FALSE(fileExists(backup()));
}

TEST_F(MDIForm1Test, AnEndAskedByTheSystemClosesTheDialogsFirst) {
  openFrame();
  QTimer::singleShot(0, frame.get(), [this] { frame->closeWhenFree(); });

  item("mnuAbout")->trigger();

  EXPECT_TRUE(QTest::qWaitFor([this] { return !frame->isVisible(); }));
  EXPECT_TRUE(fileExists(backup()));
}

TEST_F(MDIForm1Test, TheEditPopUpComesWhereItIsAsked) {
  openFrame();

  frame->popUpEdit(QPoint(100, 100));

  EXPECT_TRUE(frame->menu().menu("mnuEdit").isVisible());
  frame->menu().menu("mnuEdit").close();
}

} // namespace
} // namespace hearthbook
