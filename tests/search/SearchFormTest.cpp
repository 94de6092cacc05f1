#include "SearchFixture.h"

#include "BoundControls.h"
#include "ProgressNote.h"

namespace hearthbook::test {

namespace {

class SearchForm : public SearchFixture {
protected:
  static QStringList entries(const Search& search, const char* list) {
    return textsOf(*control<QListWidget>(search, list));
  }
  static int chosen(const Search& search, const char* list) {
    return static_cast<int>(control<QListWidget>(search, list)->selectedItems().size());
  }
  /// Types into a field and leaves it for another.
  static std::string leftAs(const Search& search, const char* field, const char* typed) {
    auto* line = control<QLineEdit>(search, field);
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, toQString(typed));
    control<QLineEdit>(search, "Description")->setFocus();
    return toUtf8(line->text());
  }
  std::string idInCell(int index) {
    const auto walker = result().Clone();
    walker->Move(vars().PagePositions[static_cast<std::size_t>(index)].toInteger() - 1,
                 Recordset::Start::First);
    return walker->Collect("PictureID").toText();
  }
};

} // namespace

TEST_F(SearchForm, OpensWithItsListsFilledInTheOrderOfTheirSets) {
  folder_.addPlace("Lake");
  folder_.addPlace("Home");
  folder_.addEvent("Wedding");
  folder_.addPerson("Bo");
  const auto ann = folder_.addPerson("Ann", 1);
  data().rsAppearances.Close();
  data().rsAppearances.Open(sources::familyMembers);

  const auto& search = openSearch();

  EXPECT_EQ(search.caption(), toQString("Search Photos"));
  EXPECT_EQ(entries(search, "List1"), (QStringList{toQString("Home"), toQString("Lake")}));
  EXPECT_EQ(entries(search, "List2"), QStringList{toQString("Wedding")});
  EXPECT_EQ(entries(search, "List3"), (QStringList{toQString("Ann"), toQString("Bo")}));
  const auto* people = control<QListWidget>(search, "List3");
  EXPECT_EQ(people->item(0)->data(Qt::UserRole).toLongLong(), ann);
  EXPECT_EQ(data().rsAppearances.Source(), sources::appearances);
}

TEST_F(SearchForm, OpensWithEmptyListsWhereThereIsNothingToChoose) {
  const auto& search = openSearch();
  for (const char* list : {"List1", "List2", "List3"})
    EXPECT_EQ(control<QListWidget>(search, list)->count(), 0) << list;
}

TEST_F(SearchForm, OffersTheFourSortsAndBeginsWithTheYear) {
  const auto& search = openSearch();
  const auto* sort = control<QComboBox>(search, "SortBy");
  ASSERT_EQ(sort->count(), 4);
  for (int entry = 0; entry < 4; ++entry)
    EXPECT_EQ(toUtf8(sort->itemText(entry)), sortEntries[entry]);
  EXPECT_EQ(sort->currentText(), toQString("Year"));
}

TEST_F(SearchForm, OpensOnItsFirstPageWithNothingToBeDoneWithAResult) {
  vars().AtFirstPage = false;
  const auto& search = openSearch();
  EXPECT_TRUE(vars().AtFirstPage);
  for (const char* command : {"Command2", "Command3", "Command12", "Command13", "Command4",
                              "Command5", "Command10", "Command11", "Command14"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
  EXPECT_EQ(filledCells(search), 0);
  EXPECT_EQ(labelOf(search, "PosLabel"), "");
}

TEST_F(SearchForm, TellsTheHelpThatItIsInFront) {
  openSearch();
  EXPECT_EQ(frame_.active, toQString("Search Album"));
}

TEST_F(SearchForm, EmptiesAYearThatIsNoNumberWhenItIsLeft) {
  auto& search = openSearch();
  search.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&search));
  for (const char* field : {"FromYear", "ToYear"}) {
    EXPECT_EQ(leftAs(search, field, "soon"), "") << field;
    EXPECT_EQ(leftAs(search, field, "19a0"), "") << field;
    EXPECT_EQ(leftAs(search, field, "1990"), "1990") << field;
    EXPECT_EQ(leftAs(search, field, "1,990"), "1,990") << field;
    EXPECT_EQ(leftAs(search, field, "-7.5"), "-7.5") << field;
  }
}

TEST_F(SearchForm, EmptiesAYearThatIsNoNumberBeforeItSearches) {
  auto& search = openSearch();
  search.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&search));
  auto* year = control<QLineEdit>(search, "FromYear");
  year->setFocus();
  QTest::keyClicks(year, toQString("soon"));
  QTest::keyClick(year, Qt::Key_Return);
  EXPECT_EQ(year->text(), QString());
  EXPECT_EQ(search.caption(), toQString("Search Results For: "));
}

TEST_F(SearchForm, ClearSelectionChoosesNothingInItsListAlone) {
  folder_.addPlace("Home");
  folder_.addPlace("Lake");
  folder_.addEvent("Wedding");
  folder_.addPerson("Ann");
  const auto& search = openSearch();
  choose(search, "List1", "Home");
  choose(search, "List1", "Lake");
  choose(search, "List2", "Wedding");
  choose(search, "List3", "Ann");

  press(search, "Command6");
  EXPECT_EQ(chosen(search, "List1"), 0);
  EXPECT_EQ(chosen(search, "List2"), 1);
  press(search, "Command6"); // with nothing chosen
  EXPECT_EQ(chosen(search, "List1"), 0);
  EXPECT_EQ(chosen(search, "List2"), 1);
  press(search, "Command7");
  EXPECT_EQ(chosen(search, "List2"), 0);
  EXPECT_EQ(chosen(search, "List3"), 1);
  press(search, "Command8");
  EXPECT_EQ(chosen(search, "List3"), 0);
}

TEST_F(SearchForm, AClickChoosesAnEntryBesideTheOthersAndTakesItBack) {
  for (const char* place : {"Home", "Lake", "Rome"})
    folder_.addPlace(place);
  const auto& search = openSearch();
  auto* places = control<QListWidget>(search, "List1");
  const auto clickOn = [&](int row) {
    QTest::mouseClick(places->viewport(), Qt::LeftButton, {},
                      places->visualItemRect(places->item(row)).center());
  };
  clickOn(0);
  clickOn(2);
  EXPECT_EQ(chosen(search, "List1"), 2);
  clickOn(0);
  EXPECT_FALSE(places->item(0)->isSelected());
  EXPECT_TRUE(places->item(2)->isSelected());
}

TEST_F(SearchForm, TypingANameWalksToItAndSpaceChoosesIt) {
  for (const char* place : {"Home", "Lake", "Rome"})
    folder_.addPlace(place);
  const auto& search = openSearch();
  auto* places = control<QListWidget>(search, "List1");
  places->setFocus();
  QTest::keyClick(places, Qt::Key_R);
  EXPECT_EQ(places->currentRow(), 2);
  EXPECT_EQ(chosen(search, "List1"), 0);
  QTest::keyClick(places, Qt::Key_Space);
  EXPECT_TRUE(places->item(2)->isSelected());
}

TEST_F(SearchForm, WithoutCriteriaFindsTheWholeAlbumByYear) {
  folder_.addPhoto("HD00002", {{"Year", 1990}});
  folder_.addPhoto("HD00003", {{"Year", 1950}});
  auto& search = openSearch();
  press(search, "Command1");

  EXPECT_EQ(result().Source(), "SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
  EXPECT_EQ(search.caption(), toQString("Search Results For: "));
  EXPECT_EQ(search.Tag, QString());
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 3 of 3");
  EXPECT_EQ(idInCell(1), "HD00003");
  EXPECT_EQ(idInCell(2), "HD00002");
}

TEST_F(SearchForm, GathersAllItsCriteria) {
  for (const char* place : {"Attic", "Garden", "Home", "Inn", "Lake"})
    folder_.addPlace(place);
  const auto wedding = folder_.addEvent("Wedding");
  const auto ann = folder_.addPerson("Ann");
  folder_.addPhoto("HD00002", {{"PlaceID", 3},
                               {"EventID", wedding},
                               {"NamesInPhoto", personKey(ann) + ","},
                               {"Year", 1991},
                               {"Description", "at bob's"}});
  auto& search = openSearch();
  choose(search, "List1", "Home");
  choose(search, "List1", "Lake");
  choose(search, "List2", "Wedding");
  choose(search, "List3", "Ann");
  type(search, "FromYear", "1990");
  type(search, "ToYear", "1995");
  type(search, "Description", "Bob's");
  control<QComboBox>(search, "SortBy")->setCurrentText(toQString("Place"));
  press(search, "Command1");

  EXPECT_EQ(result().Source(),
            "SELECT * FROM PhotoAlbum WHERE (PhotoAlbum.PlaceID = 3 OR PhotoAlbum.PlaceID = 5) And "
            "(PhotoAlbum.EventID = 1) AND (NamesInPhoto LIKE '%001%') AND (Year >= 1990) AND (Year "
            "<= 1995) AND (Description LIKE '%Bob''s%') ORDER BY PlaceID, PictureID");
  EXPECT_EQ(search.Tag, toQString("Wedding, Home, Lake, Ann, From 1990 To 1995"));
  EXPECT_EQ(vars().SearchSummary, "Wedding, Home, Lake, Ann, From 1990 To 1995");
  EXPECT_EQ(search.caption(),
            toQString("Search Results For: Wedding, Home, Lake, Ann, From 1990 To 1995"));
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 1 of 1");
}

TEST_F(SearchForm, EnablesWhatCanBeDoneWithAResult) {
  const auto& search = searchAmong(2);
  for (const char* command :
       {"Command2", "Command3", "Command12", "Command13", "Command4", "Command5", "Command10"})
    EXPECT_TRUE(isEnabled(search, command)) << command;
  for (const char* command : {"Command11", "Command14"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
  EXPECT_EQ(text(search, "Command14"), "No Selection");
}

TEST_F(SearchForm, RestsTheCommandsWhoseFormsAreNotThere) {
  hasWindows_ = false;
  auto& search = searchAmong(2);
  click(search, 0);
  for (const char* command : {"Command4", "Command10"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
  doubleClick(search, 0);
  for (const char* command : {"Command5", "Command11"})
    EXPECT_TRUE(isEnabled(search, command)) << command;
}

TEST_F(SearchForm, SaysWhereNothingIsFound) {
  auto& search = searchAmong(30);
  type(search, "FromYear", "2000");
  type(search, "ToYear", "1990");
  boxes_.expectMessage(toQString("No Records Found!"));
  press(search, "Command1");

  EXPECT_EQ(search.caption(), toQString("No Results For: From 2000 To 1990"));
  EXPECT_EQ(labelOf(search, "PosLabel"), "No Records");
  EXPECT_EQ(filledCells(search), 0);
  for (int index = 0; index < resultsPerPage; ++index)
    EXPECT_FALSE(cell(search, index).hasPicture()) << index;
  EXPECT_EQ(vars().PageThumbCount, 24); // as the page before left it
  for (const char* command : {"Command2", "Command3", "Command12", "Command13", "Command4",
                              "Command5", "Command10", "Command14"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
  EXPECT_EQ(text(search, "Command14"), "No Selection");
}

TEST_F(SearchForm, KeepsTheSelectionOverASearchThatFindsNothing) {
  auto& search = searchAmong(30);
  click(search, 4);
  click(search, 5);
  const SelectionSet before = selection();
  type(search, "FromYear", "3000");
  boxes_.expectMessage(toQString("No Records Found!"));
  press(search, "Command1");

  EXPECT_EQ(selection(), before);
  EXPECT_TRUE(framed(search).empty());
  EXPECT_TRUE(isEnabled(search, "Command11"));
}

TEST_F(SearchForm, EmptiesTheSelectionWithASearchThatFinds) {
  auto& search = searchAmong(30);
  click(search, 4);
  press(search, "Command1");
  EXPECT_EQ(selection(), SelectionSet());
  EXPECT_TRUE(framed(search).empty());
  EXPECT_EQ(text(search, "Command14"), "No Selection");
  EXPECT_FALSE(isEnabled(search, "Command11"));
  EXPECT_EQ(text(search, "Command10"), "Add To Sub-Album"); // until the selection changes again
}

TEST_F(SearchForm, ReportsASearchThatTheDatabaseRefusesAndKeepsTheResultThatWasThere) {
  auto& search = searchAmong(60);
  press(search, "Command2");
  click(search, 0);
  const auto refuse = [&](const char* part) {
    boxes_.expectFailure(toQString(part));
    press(search, "Command1");
    EXPECT_EQ(result().Source(), "SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
    EXPECT_EQ(labelOf(search, "PosLabel"), "25 to 48 of 60");
    EXPECT_EQ(search.caption(), toQString("Search Results For: "));
    EXPECT_EQ(framed(search), std::vector<int>{0});
  };
  auto* sort = control<QComboBox>(search, "SortBy");
  sort->setCurrentText(toQString("No Sort!"));
  refuse("ORDER BY , PictureID");
  sort->setCurrentText(toQString("Year"));
  for (const char* year : {"1,990", "&H7C6", "$1990"}) {
    type(search, "FromYear", year);
    refuse(year);
  }

  press(search, "Command2");
  EXPECT_EQ(labelOf(search, "PosLabel"), "49 to 60 of 60");
  type(search, "FromYear", "");
  press(search, "Command1");
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 24 of 60");
}

TEST_F(SearchForm, ARefusedSearchLeavesTheSummaryAndTheGuardsOfTheResultThatIsThere) {
  const auto lake = folder_.addPlace("Lake");
  folder_.addPhoto("HD00002", {{"PlaceID", lake}});
  auto& search = openSearch();
  choose(search, "List1", "Lake");
  press(search, "Command1");
  press(search, "Command6");
  type(search, "FromYear", "1,990");
  boxes_.expectFailure(toQString("1,990"));
  press(search, "Command1");
  EXPECT_EQ(search.Tag, toQString("Lake, "));
  EXPECT_EQ(vars().SearchSummary, "Lake, ");

  click(search, 0);
  inBatch([this](const BatchEdit& batch) {
    control<DataCombo>(batch, "PlacesDrp")->setText(toQString("Lake"));
    boxes_.expectMessage(toQString("Can't delete Place that is in the search criteria"),
                         toQString("Delete Event"));
    EditorFixture::press(batch, "Command13");
  });
  press(search, "Command11");
  EXPECT_TRUE(boxes_.isDone());
}

TEST_F(SearchForm, ReportsARefusalBeforeTheFirstSearchToo) {
  addRowsUpTo(3);
  auto& search = openSearch();
  type(search, "ToYear", "1,990");
  boxes_.expectFailure(toQString("1,990"));
  press(search, "Command1");
  EXPECT_EQ(search.caption(), toQString("Search Photos"));
  EXPECT_TRUE(result().isOpen());
  type(search, "ToYear", "");
  press(search, "Command1");
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 3 of 3");
}

TEST_F(SearchForm, SearchesUnderProgress) {
  ProgressNote progress;
  searchAmong(60);
  EXPECT_EQ(progress.caption, toQString("Search In Progress"));
  EXPECT_EQ(progress.minimum, 0);
  EXPECT_EQ(progress.maximum, 25);
  EXPECT_EQ(progress.values.back(), 24);
  EXPECT_EQ(Forms::loaded<Progress>(), nullptr);
}

TEST_F(SearchForm, TheBarOfAShortResultHasOneMoreThanThereAreRecords) {
  ProgressNote progress;
  searchAmong(3);
  EXPECT_EQ(progress.maximum, 4);
}

TEST_F(SearchForm, DoneForgetsTheCriteria) {
  folder_.addPlace("Home");
  folder_.addPhoto("HD00002", {{"PlaceID", 1}});
  auto& search = openSearch();
  choose(search, "List1", "Home");
  type(search, "FromYear", "1");
  type(search, "Description", "x");
  boxes_.expectMessage(toQString("No Records Found!"));
  press(search, "Command1");
  EXPECT_EQ(vars().SearchSummary, "Home, From 1 ");
  QTest::mouseClick(control<QAbstractButton>(search, "Command9"), Qt::LeftButton);
  EXPECT_EQ(Forms::loaded<Search>(), nullptr);
  EXPECT_EQ(vars().SearchSummary, "");

  const auto& again = openSearch();
  EXPECT_EQ(chosen(again, "List1"), 0);
  for (const char* field : {"FromYear", "ToYear", "Description"})
    EXPECT_EQ(control<QLineEdit>(again, field)->text(), QString()) << field;
  EXPECT_EQ(control<QComboBox>(again, "SortBy")->currentText(), toQString("Year"));
  EXPECT_EQ(again.Tag, QString());
}

TEST_F(SearchForm, ReturnInAFieldSearches) {
  addRowsUpTo(2);
  auto& search = openSearch();
  auto* description = control<QLineEdit>(search, "Description");
  description->setFocus();
  QTest::keyClick(description, Qt::Key_Return);
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 2 of 2");
}

TEST_F(SearchForm, StartsOverWhereItsResultIsAnotherSet) {
  auto& search = searchAmong(30);
  press(search, "Command2");
  click(search, 1);
  search.startOver();
  EXPECT_EQ(search.caption(), toQString("Search Photos"));
  EXPECT_EQ(filledCells(search), 0);
  EXPECT_EQ(selection(), SelectionSet());
  EXPECT_EQ(text(search, "Command10"), "Add All To Sub-Album");
  EXPECT_TRUE(vars().AtFirstPage);
  for (const char* command : {"Command2", "Command5", "Command11", "Command14"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
}

} // namespace hearthbook::test
