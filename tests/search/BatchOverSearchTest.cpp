#include "SearchFixture.h"

namespace hearthbook::test {

namespace {

/// Search with batch editing over it, as the user meets both.
class BatchOverSearch : public SearchFixture {
protected:
  /// `count` photos of the year 1990, found by that year.
  Search& searchHolidays(int count) {
    for (int number = 2; number <= count + 1; ++number)
      folder_.addPhoto(idOf(number), {{"Year", 1990}});
    auto& search = openSearch();
    type(search, "FromYear", "1990");
    press(search, "Command1");
    return search;
  }
  void expectUpdateAnswered(int count, MsgAnswer editSeparately) {
    boxes_.expectQuestion(
        QStringLiteral("Are you sure you want to Update %1 selected records?").arg(count), {},
        MsgIcon::None, MsgButtons::YesNo, MsgAnswer::Yes);
    boxes_.expectQuestion(toQString("Do you want to separately edit the selected photos?"),
                          toQString("Batch Edit"), MsgIcon::Question, MsgButtons::YesNo,
                          editSeparately);
  }
  void expectDeletionAnswered(int count) {
    boxes_.expectQuestion(QStringLiteral("Are you sure you want to delete %1 selected records?\n"
                                         "The files will be deleted as well!")
                              .arg(count),
                          {}, MsgIcon::Exclamation, MsgButtons::YesNo, MsgAnswer::Yes);
    boxes_.expectMessage(toQString("All Records Deleted!"));
  }
  void deleteSelected(const Search& search) {
    expectDeletionAnswered(selection().SelectedCount);
    inBatch([](const BatchEdit& batch) { EditorFixture::press(batch, "Command5"); });
    press(search, "Command11");
  }
  static QStringList entries(const Search& search, const char* list) {
    QStringList texts;
    const auto* items = control<QListWidget>(search, list);
    for (int row = 0; row < items->count(); ++row)
      texts << items->item(row)->text();
    return texts;
  }
};

} // namespace

TEST_F(BatchOverSearch, DeletingAllPhotosOfAResultLeavesSearchWithoutRecords) {
  const auto& search = searchHolidays(3);
  for (const int index : {2, 0, 1})
    click(search, index);
  expectDeletionAnswered(3);
  boxes_.expectMessage(toQString("No Records Found!"));
  inBatch([](const BatchEdit& batch) { EditorFixture::press(batch, "Command5"); });
  press(search, "Command11");
  EXPECT_EQ(result().RecordCount(), 0);
  EXPECT_EQ(filledCells(search), 0);
  EXPECT_EQ(search.caption(), toQString("No Results For: From 1990 "));
  EXPECT_EQ(text(search, "Command14"), "No Selection");
  for (const char* command :
       {"Command2", "Command3", "Command12", "Command13", "Command4", "Command5"})
    EXPECT_FALSE(isEnabled(search, command)) << command;
  EXPECT_EQ(photos().RecordCount(), 1);
}

TEST_F(BatchOverSearch, WhereNoPhotoIsLeftTheUpdateIsSeenBeforeItIsSaid) {
  const auto& search = searchHolidays(1);
  QStringList captions;
  Forms::provide<Progress>([&] {
    auto* progress = new Progress;
    QObject::connect(progress, &QWidget::windowTitleChanged, progress,
                     [&](const QString& caption) { captions << caption; });
    return progress;
  });
  click(search, 0);
  expectDeletionAnswered(1);
  boxes_.expectMessage(toQString("No Records Found!"));
  inBatch([](const BatchEdit& batch) { EditorFixture::press(batch, "Command5"); });
  press(search, "Command11");
  ASSERT_FALSE(captions.isEmpty());
  EXPECT_EQ(captions.back(), toQString("Updating Search Results, Please Wait"));
  EXPECT_EQ(labelOf(search, "PosLabel"), "No Records");
  Forms::provide<Progress>([] { return new Progress; });
}

TEST_F(BatchOverSearch, BehindThePagesThatANumberCanTellItReportsThatAndChangesNothing) {
  data().AlbumDB.execute(
      "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 33000) "
      "INSERT INTO PhotoAlbum (PictureID) SELECT printf('HD%05d', i) FROM n");
  const auto& search = searchAmong(1);
  press(search, "Command13");
  EXPECT_EQ(labelOf(search, "PosLabel"), "32977 to 33000 of 33000");
  click(search, 0);
  inBatch([&](const BatchEdit& batch) {
    control<QLineEdit>(batch, "Year")->setText(toQString("1991"));
    boxes_.expectQuestion(toQString("Are you sure you want to Update 1 selected records?"), {},
                          MsgIcon::None, MsgButtons::YesNo, MsgAnswer::Yes);
    boxes_.expectFailure(toQString("too large"));
    EditorFixture::press(batch, "Command4");
    boxes_.expectQuestion(toQString("Are you sure you want to delete 1 selected records?\n"
                                    "The files will be deleted as well!"),
                          {}, MsgIcon::Exclamation, MsgButtons::YesNo, MsgAnswer::Yes);
    boxes_.expectFailure(toQString("too large"));
    EditorFixture::press(batch, "Command5");
  });
  press(search, "Command11");
  EXPECT_TRUE(boxes_.isDone());
  EXPECT_TRUE(stored("HD32977", "Year").isNull());
  EXPECT_EQ(labelOf(search, "PosLabel"), "32977 to 33000 of 33000");
}

TEST_F(BatchOverSearch, DeletedPhotosLeaveThePageOnWhichTheyStood) {
  const auto& search = searchHolidays(30);
  press(search, "Command2");
  EXPECT_EQ(labelOf(search, "PosLabel"), "25 to 30 of 30");
  for (const int index : {0, 4})
    click(search, index);
  deleteSelected(search);
  EXPECT_EQ(labelOf(search, "PosLabel"), "25 to 28 of 28");
  EXPECT_EQ(filledCells(search), 4);
  EXPECT_TRUE(framed(search).empty());
  EXPECT_FALSE(isEnabled(search, "Command11"));
}

TEST_F(BatchOverSearch, WhereTheLastPageGoesTheFirstIsShown) {
  const auto& search = searchHolidays(25);
  press(search, "Command2");
  click(search, 0);
  deleteSelected(search);
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 24 of 24");
}

TEST_F(BatchOverSearch, PhotosOfSeveralPagesAreChangedAtOnce) {
  const auto& search = searchHolidays(30);
  click(search, 23);
  press(search, "Command2");
  click(search, 5);
  inBatch([&](const BatchEdit& batch) {
    EXPECT_EQ(labelOf(batch, "countLabel").substr(0, 8), "2 photos");
    control<QLineEdit>(batch, "Year")->setText(toQString("1991"));
    expectUpdateAnswered(2, MsgAnswer::No);
    EditorFixture::press(batch, "Command4");
  });
  press(search, "Command11");
  EXPECT_EQ(stored(idOf(25), "Year"), Value(1991));
  EXPECT_EQ(stored(idOf(31), "Year"), Value(1991));
  EXPECT_EQ(stored(idOf(26), "Year"), Value(1990));
}

TEST_F(BatchOverSearch, ChangedPhotosAreEditedOneByOneAndSearchIsThereAfterwards) {
  const auto& search = searchHolidays(5);
  for (const int index : {3, 1})
    click(search, index);
  inBatch([&](const BatchEdit& batch) {
    expectUpdateAnswered(2, MsgAnswer::Yes);
    EditorFixture::press(batch, "Command4");
  });
  press(search, "Command11");
  auto& editor = Forms::get<DBeditor>();
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 2");
  EXPECT_EQ(currentId(), idOf(3));
  press(editor, "NextPhoto");
  EXPECT_EQ(currentId(), idOf(5));
  press(editor, "Command4");
  EXPECT_EQ(photos().RecordCount(), 6);
  EXPECT_EQ(labelOf(search, "PosLabel"), "1 to 5 of 5");
}

TEST_F(BatchOverSearch, WhatWasAddedThereIsInTheListsOfSearchAndNothingIsChosenInThem) {
  folder_.addPlace("Lake");
  const auto& search = searchHolidays(2);
  click(search, 0);
  choose(search, "List1", "Lake");
  inBatch([this](const BatchEdit& batch) {
    boxes_.expectInput(toQString("Please Type Place Name (up to 20 characters):"),
                       toQString("New Place"), toQString("Garden"));
    EditorFixture::press(batch, "Command9");
    boxes_.expectInput(toQString("Please Type Event Name (up to 20 characters):"),
                       toQString("New Event"), toQString("Wedding"));
    EditorFixture::press(batch, "Command10");
    EditorFixture::press(batch, "Command1");
  });
  press(search, "Command11");
  EXPECT_EQ(entries(search, "List1"), (QStringList{toQString("Lake"), toQString("Garden")}));
  EXPECT_EQ(entries(search, "List2"), QStringList{toQString("Wedding")});
  EXPECT_TRUE(control<QListWidget>(search, "List1")->selectedItems().isEmpty());
}

TEST_F(BatchOverSearch, TheListOfNamesHasEverybodyAgainWhateverWasFilteredThere) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Cousin", anna);
  const auto& search = searchHolidays(2);
  click(search, 0);
  inBatch([](const BatchEdit& batch) { EditorFixture::press(batch, "Command1"); });
  press(search, "Command11");
  EXPECT_EQ(entries(search, "List3"), (QStringList{toQString("Anna"), toQString("Cousin")}));
}

} // namespace hearthbook::test
