#include "StartupFixture.h"

#include "Stage.h"

#include <QHeaderView>
#include <QScrollBar>

#include <utility>

namespace hearthbook::test {
namespace {

/// The start screen with a few albums, and somebody who opens them.
class AlbumPickerTest : public StartupFixture {
protected:
  AlbumPickerTest() {
    commands.viewAlbum = [this](int id, const QString& name, const auto& aboutToShow) {
      picked.emplace_back(id, toUtf8(name));
      if (hasPhotos) {
        aboutToShow();
        wasOpenWhenShown = list().isVisible() || note().isVisible();
      }
    };
  }

  void addAlbums(int count) {
    for (int number = 1; number <= count; ++number)
      addSubAlbum(number, "Album " + std::to_string(number), {});
  }
  void openPicker() { QTest::mouseClick(command("Image5"), Qt::LeftButton); }
  QPoint spotOf(int row) { return list().rowRect(row).center() - list().viewport()->pos(); }
  void moveToRow(int row) { QTest::mouseMove(list().viewport(), spotOf(row)); }
  void click(int row) {
    moveToRow(row);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, spotOf(row));
  }
  QStringList rows() {
    QStringList texts;
    for (int row = 0; row < list().rows(); ++row)
      texts << list().cellText(row, 0);
    return texts;
  }
  const PublicVar::ChosenAlbum& chosen() { return album().vars.chosenAlbum; }
  bool isScrolling() { return list().verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn; }

  std::vector<std::pair<int, std::string>> picked;
  bool hasPhotos = true;
  bool wasOpenWhenShown = true;
};

// ---- the list

TEST_F(AlbumPickerTest, AtFirstItIsHidden) {
  show();

  EXPECT_FALSE(list().isVisible());
  EXPECT_FALSE(note().isVisible());
  EXPECT_EQ(chosen().id, 0);
  EXPECT_EQ(chosen().name, "");
}

TEST_F(AlbumPickerTest, WithoutSubAlbumsItHoldsTheMasterAlbumOnly) {
  show();

  openPicker();

  EXPECT_TRUE(list().isVisible());
  EXPECT_EQ(rows(),
            (QStringList{QStringLiteral("Select Album To View:"), QStringLiteral("Master Album")}));
  EXPECT_EQ(list().rowData(1), 0);
  EXPECT_EQ(list().row(), 0);
  EXPECT_FALSE(isScrolling());
}

TEST_F(AlbumPickerTest, TheMasterAlbumComesFirstAndThenTheAlbumsByName) {
  addSubAlbum(7, "lake", {});
  addSubAlbum(3, "Wedding", {});
  addSubAlbum(12, "Birthday", {});
  show();

  openPicker();

  EXPECT_EQ(rows().mid(1), (QStringList{QStringLiteral("Master Album"), QStringLiteral("Birthday"),
                                        QStringLiteral("lake"), QStringLiteral("Wedding")}));
  EXPECT_EQ(list().rowData(3), 7);
}

TEST_F(AlbumPickerTest, ANameWithATabStaysInItsColumn) {
  addSubAlbum(7, "lake\tside", {});
  show();

  openPicker();

  EXPECT_EQ(list().cellText(2, 0), QStringLiteral("lake\tside"));
}

TEST_F(AlbumPickerTest, OpenedAgainItHoldsEachAlbumOnce) {
  addAlbums(3);
  show();
  openPicker();

  openPicker();

  EXPECT_EQ(list().rows(), 5);
  EXPECT_EQ(list().row(), 0);
}

TEST_F(AlbumPickerTest, SevenAlbumsAreSeenAtOnceAndEightScroll) {
  addAlbums(7);
  show();
  openPicker();
  EXPECT_FALSE(isScrolling());
  const int height = list().height();
  EXPECT_EQ(list().verticalScrollBar()->maximum(), 0);

  album().data.rsSubAlbums.Close();
  addSubAlbum(8, "Album 8", {});
  album().data.rsSubAlbums.Open(sources::subAlbums);
  openPicker();

  EXPECT_TRUE(isScrolling());
  EXPECT_EQ(list().height(), height);
  EXPECT_EQ(list().verticalScrollBar()->maximum(), 1);
}

TEST_F(AlbumPickerTest, ItStandsAboveItsCommand) {
  addAlbums(3);
  show();

  openPicker();

  const QRect command5 = command("Image5")->geometry();
  EXPECT_NEAR(list().geometry().center().x(), command5.center().x(), 2);
  EXPECT_LT(list().geometry().bottom(), command5.top());
  EXPECT_GT(list().geometry().bottom(), command5.top() - 20);
}

TEST_F(AlbumPickerTest, NoRowIsCutAtAnySize) {
  addAlbums(7);
  show();
  openPicker();
  for (const QSize size : {QSize(640, 400), QSize(957, 668), QSize(1853, 980), QSize(3773, 2060)}) {
    startup->resize(size);
    QCoreApplication::processEvents();
    const QRect last = list().rowRect(list().rows() - 1);
    const int foot = list().viewport()->geometry().bottom();
    EXPECT_EQ(list().verticalScrollBar()->maximum(), 0) << size.width();
    EXPECT_LE(last.bottom(), foot) << size.width();
    EXPECT_GE(last.bottom(), foot - 2) << size.width();
    EXPECT_LE(list().geometry().bottom(), command("Image5")->geometry().top()) << size.width();
  }
}

// ---- the mouse

TEST_F(AlbumPickerTest, TheRowUnderTheMouseIsTheCurrentOneAndTheAlbumChosen) {
  addSubAlbum(7, "Lake", {});
  show();
  openPicker();

  moveToRow(2);
  EXPECT_EQ(list().row(), 2);
  EXPECT_EQ(chosen().id, 7);
  EXPECT_EQ(chosen().name, "Lake");

  moveToRow(1);
  EXPECT_EQ(chosen().id, 0);
  EXPECT_EQ(chosen().name, "Master Album");
}

TEST_F(AlbumPickerTest, TheDescriptionStandsBesideItsRow) {
  addSubAlbum(7, "Lake", {}, "'Two weeks of rain, and nobody minded.'");
  show();
  openPicker();

  moveToRow(2);

  EXPECT_TRUE(note().isVisible());
  EXPECT_EQ(note().text(), QStringLiteral("Two weeks of rain, and nobody minded."));
  EXPECT_NEAR(note().geometry().top(), list().geometry().top() + list().rowRect(2).top(), 1);
  EXPECT_GE(note().geometry().left(), list().geometry().right());
}

TEST_F(AlbumPickerTest, AnAlbumWithoutADescriptionHasNoNote) {
  addSubAlbum(7, "Lake", {}, "'Two weeks of rain.'");
  addSubAlbum(8, "Wedding", {});
  addSubAlbum(9, "Zoo", {}, "''");
  show();
  openPicker();
  for (const int row : {1, 3, 4}) {
    moveToRow(2);
    EXPECT_TRUE(note().isVisible());
    moveToRow(row);
    EXPECT_FALSE(note().isVisible()) << row;
  }
}

TEST_F(AlbumPickerTest, ALongDescriptionStaysOnTheScreen) {
  addSubAlbum(7, "Lake", {}, "'" + std::string(900, 'w') + " " + std::string(300, 'm') + "'");
  show();
  openPicker();

  moveToRow(2);

  EXPECT_GE(note().geometry().top(), 0);
  EXPECT_LE(note().geometry().bottom(), startup->height());
}

TEST_F(AlbumPickerTest, ItStaysOpenOverThePictureAndItsOwnCommand) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  show();
  openPicker();
  moveToRow(2);

  moveToBackground();
  moveTo(command("Image5"));

  EXPECT_TRUE(list().isVisible());
  EXPECT_TRUE(note().isVisible());
}

TEST_F(AlbumPickerTest, AnotherCommandUnderTheMouseClosesIt) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  show();
  for (const char* name : {"Image3", "Image4", "Image6"}) {
    openPicker();
    moveToRow(2);
    moveTo(command(name));
    EXPECT_FALSE(list().isVisible()) << name;
    EXPECT_FALSE(note().isVisible()) << name;
  }
}

TEST_F(AlbumPickerTest, ExitClosesTheListAndLeavesTheDescription) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  show();
  openPicker();
  moveToRow(2);

  moveTo(command("Image7"));
  EXPECT_FALSE(list().isVisible());
  EXPECT_TRUE(note().isVisible());

  openPicker();
  EXPECT_FALSE(note().isVisible());
}

TEST_F(AlbumPickerTest, ClosingItByTheMousePointsAtNoOtherCommand) {
  show();
  openPicker();
  EXPECT_TRUE(list().hasFocus());

  moveTo(command("Image3"));

  EXPECT_TRUE(command("Image3")->isPointedAt());
  EXPECT_TRUE(command("Image5")->hasFocus());
}

TEST_F(AlbumPickerTest, AClickOpensTheAlbumAndThePickerIsGoneBeforeItIsShown) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  show();
  openPicker();

  click(2);

  EXPECT_EQ(picked, (std::vector<std::pair<int, std::string>>{{7, "Lake"}}));
  EXPECT_FALSE(wasOpenWhenShown);
  EXPECT_FALSE(list().isVisible());
  EXPECT_EQ(chosen().id, 7);
}

TEST_F(AlbumPickerTest, AnEmptyAlbumLeavesItOpen) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  hasPhotos = false;
  show();
  openPicker();

  click(2);

  EXPECT_TRUE(list().isVisible());
  EXPECT_TRUE(note().isVisible());
}

TEST_F(AlbumPickerTest, TheHeadingIsNoAlbum) {
  show();
  openPicker();

  QTest::mouseClick(list().horizontalHeader()->viewport(), Qt::LeftButton);

  EXPECT_TRUE(picked.empty());
  EXPECT_TRUE(list().isVisible());
}

// ---- the keyboard

TEST_F(AlbumPickerTest, AnAlbumIsOpenedByTheKeyboardAlone) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  show();
  command("Image5")->setFocus();

  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  ASSERT_TRUE(list().hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(list().row(), 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(chosen().name, "Lake");
  EXPECT_TRUE(note().isVisible());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

  EXPECT_EQ(picked, (std::vector<std::pair<int, std::string>>{{7, "Lake"}}));
  EXPECT_FALSE(list().isVisible());
}

TEST_F(AlbumPickerTest, EscapeGivesUpAndReturnsToTheCommand) {
  addSubAlbum(7, "Lake", {}, "'Rain.'");
  show();
  openPicker();
  moveToRow(2);

  QTest::keyClick(&list(), Qt::Key_Escape);

  EXPECT_FALSE(list().isVisible());
  EXPECT_FALSE(note().isVisible());
  EXPECT_TRUE(command("Image5")->hasFocus());
}

TEST_F(AlbumPickerTest, TabGoesOnFromTheListToTheNextCommand) {
  show();
  command("Image5")->setFocus();
  QTest::keyClick(command("Image5"), Qt::Key_Space);
  ASSERT_TRUE(list().hasFocus());

  QTest::keyClick(&list(), Qt::Key_Tab);

  EXPECT_TRUE(command("Image7")->hasFocus());
  EXPECT_FALSE(list().isVisible());
}

TEST_F(AlbumPickerTest, TheDescriptionFollowsItsRowAsTheListScrolls) {
  for (int number = 1; number <= 12; ++number)
    addSubAlbum(number, "Album " + std::to_string(10 + number), {}, "'Of year.'");
  show();
  openPicker();
  for (int step = 0; step < 12; ++step)
    QTest::keyClick(&list(), Qt::Key_Down);

  EXPECT_EQ(list().row(), 12);
  EXPECT_GT(list().topRow(), 1);
  EXPECT_NEAR(note().geometry().top(), list().geometry().top() + list().rowRect(12).top(), 1);
}

} // namespace
} // namespace hearthbook::test
