#include "BatchEditFixture.h"
#include "FlexGrid.h"

namespace hearthbook::test {

namespace {

/// The place or the event of the form, and the words that are said about it.
struct BatchList {
  const char* dropDown;
  const char* add;
  const char* remove;
  const char* field;
  const char* what;
  const char* lower;
  const char* article;
};

const BatchList batchLists[] = {
    {"PlacesDrp", "Command9", "Command13", "PlaceID", "Place", "place", "A"},
    {"EventsDrp", "Command10", "Command8", "EventID", "Event", "event", "An"}};

class BatchLists : public BatchEditFixture, public testing::WithParamInterface<BatchList> {
protected:
  QString words(const char* text) {
    return toQString(text).replace(toQString("%1"), toQString(GetParam().what));
  }
  static bool isPlace() { return GetParam().what == std::string("Place"); }
  Recordset& rows() { return isPlace() ? data().rsPlaces : data().rsEvents; }
  const char* first() { return isPlace() ? "Lake" : "Picnic"; } ///< the one of number 1
  SearchCriteria searchedFor(std::int64_t id) {
    SearchCriteria criteria;
    (isPlace() ? criteria.places : criteria.events) = {{first(), id}};
    return criteria;
  }
  void expectDeletionAskedOfList(MsgAnswer answer) {
    boxes_.expectQuestion(words("Are you sure you want to delete this %1?\n"
                                "It will removed from all photos."),
                          words("Delete Selected %1"), MsgIcon::None, MsgButtons::OkCancel, answer);
  }
  void expectDeleted() {
    boxes_.expectMessage(toQString("The ") + toQString(GetParam().lower) +
                             toQString(" was successfully deleted"),
                         words("Delete Selected %1"));
  }
  QString chosen(const BatchEdit& batch) {
    return control<DataCombo>(batch, GetParam().dropDown)->Text();
  }
  void putOnPhoto(const char* photo, int id) {
    set(photo, std::string(GetParam().field) + " = " + std::to_string(id));
    photos().Requery();
  }
};

class BatchYear : public BatchEditFixture {
protected:
  void setBirthYear(std::int64_t person, const char* year) {
    data().AlbumDB.execute("UPDATE Appearances SET BirthYear = " + std::string(year) +
                           " WHERE AppearancesID = " + std::to_string(person));
  }
  Value birthYearOf(std::int64_t person) {
    Recordset rows(data().AlbumDB);
    rows.Open("Select * From Appearances Where AppearancesID = " + std::to_string(person));
    return rows.Collect("BirthYear");
  }
  BatchEdit& readyForYear() {
    auto& batch = openBatch();
    choose(batch, "PlacesDrp", "Lake");
    choose(batch, "EventsDrp", "Picnic");
    putIn(batch, "Anna");
    chooseName(batch, 0);
    return batch;
  }
};

} // namespace

TEST_P(BatchLists, AnAddedNameIsChosenForTheUpdate) {
  select({2});
  const auto& batch = openBatch();
  boxes_.expectInput(words("Please Type %1 Name (up to 20 characters):"), words("New %1"),
                     toQString("  Garden "));
  press(batch, GetParam().add);
  EXPECT_EQ(chosen(batch), toQString("Garden"));
  EXPECT_EQ(rows().RecordCount(), 3);
  update(batch, 1);
  EXPECT_EQ(stored("HD00002", GetParam().field), Value(3));
}

TEST_P(BatchLists, ADeletedNameLeavesAllPhotos) {
  putOnPhoto("HD00002", 1);
  putOnPhoto("HD00003", 1);
  putOnPhoto("HD00004", 2);
  const auto& batch = openBatch();
  choose(batch, GetParam().dropDown, first());
  expectDeletionAskedOfList(MsgAnswer::Ok);
  expectDeleted();
  press(batch, GetParam().remove);
  EXPECT_TRUE(chosen(batch).isEmpty());
  EXPECT_EQ(rows().RecordCount(), 1);
  EXPECT_TRUE(stored("HD00002", GetParam().field).isNull());
  EXPECT_TRUE(stored("HD00003", GetParam().field).isNull());
  EXPECT_EQ(stored("HD00004", GetParam().field), Value(2));
}

TEST_P(BatchLists, ThePlaceInThePhotosAndInTheSearchIsKeptMeanwhile) {
  putOnPhoto("HD00002", 1);
  const auto& batch = openBatch();
  photos().MoveLast();
  choose(batch, GetParam().dropDown, first());
  expectDeletionAskedOfList(MsgAnswer::Ok);
  expectDeleted();
  press(batch, GetParam().remove);
  EXPECT_EQ(photos().AbsolutePosition(), 6);
  EXPECT_TRUE(results().atEOF());
}

TEST_P(BatchLists, TheOpenPhotosShowThatADeletedNameIsGoneAndKeepTheirFilter) {
  putOnPhoto("HD00002", 1);
  putOnPhoto("HD00005", 1);
  const auto& batch = openBatch();
  photos().Filter("PictureID = 'HD00004' Or PictureID = 'HD00005'");
  photos().MoveLast();
  choose(batch, GetParam().dropDown, first());
  expectDeletionAskedOfList(MsgAnswer::Ok);
  expectDeleted();
  press(batch, GetParam().remove);
  EXPECT_TRUE(stored("HD00002", GetParam().field).isNull());
  EXPECT_EQ(photos().RecordCount(), 2);
  EXPECT_EQ(photos().Collect("PictureID"), Value("HD00005"));
  EXPECT_TRUE(photos().Collect(GetParam().field).isNull());
}

TEST_P(BatchLists, WhatCannotBeDeletedIsStillInTheOpenPhotos) {
  putOnPhoto("HD00001", 1);
  const auto& batch = openBatch();
  data().AlbumDB.execute(std::string("CREATE TRIGGER Refuse BEFORE DELETE ON ") +
                         (isPlace() ? "Places" : "Events") +
                         " BEGIN SELECT RAISE(ABORT, 'no'); END");
  choose(batch, GetParam().dropDown, first());
  expectDeletionAskedOfList(MsgAnswer::Ok);
  boxes_.expectFailure(toQString("no"));
  press(batch, GetParam().remove);
  EXPECT_EQ(stored("HD00001", GetParam().field), Value(1));
  EXPECT_EQ(photos().Collect(GetParam().field), Value(1));
}

TEST_P(BatchLists, WithoutAChoiceDeleteEndsWithoutAWord) {
  press(openBatch(searchedFor(0)), GetParam().remove);
  EXPECT_EQ(rows().RecordCount(), 2);
}

TEST_P(BatchLists, CancelIsAnsweredWithNotChosen) {
  const auto& batch = openBatch();
  choose(batch, GetParam().dropDown, first());
  expectDeletionAskedOfList(MsgAnswer::Cancel);
  boxes_.expectMessage(toQString("Please Select ") + toQString(GetParam().article) +
                           toQString(" ") + words("%1 From The list"),
                       words("Delete Selected %1"));
  press(batch, GetParam().remove);
  EXPECT_EQ(rows().RecordCount(), 2);
}

TEST_P(BatchLists, WhatTheSearchAsksForCannotBeDeleted) {
  const auto& batch = openBatch(searchedFor(1));
  choose(batch, GetParam().dropDown, first());
  boxes_.expectMessage(words("Can't delete %1 that is in the search criteria"),
                       toQString("Delete Event"));
  press(batch, GetParam().remove);
  EXPECT_EQ(rows().RecordCount(), 2);
  EXPECT_EQ(chosen(batch), toQString(first()));
}

TEST_P(BatchLists, ANumberInsideThatOfTheSearchIsNoObstacle) {
  const auto& batch = openBatch(searchedFor(11));
  choose(batch, GetParam().dropDown, first());
  expectDeletionAskedOfList(MsgAnswer::Ok);
  expectDeleted();
  press(batch, GetParam().remove);
  EXPECT_EQ(rows().RecordCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(Of, BatchLists, testing::ValuesIn(batchLists),
                         [](const auto& info) { return info.param.what + std::string("s"); });

TEST_F(BatchYear, ThePlaceIsMissedBeforeTheEvent) {
  const auto& batch = openBatch();
  boxes_.expectMessage(toQString("Please Choose Place"));
  press(batch, "Command12");
  choose(batch, "PlacesDrp", "Lake");
  boxes_.expectMessage(toQString("Please Choose Event"));
  press(batch, "Command12");
  EXPECT_EQ(batch.focusWidget(), control<QWidget>(batch, "EventsDrp"));
  choose(batch, "EventsDrp", "Picnic");
  boxes_.expectMessage(toQString("Please Select Name"));
  press(batch, "Command12");
}

TEST_F(BatchYear, TheWizardGivesItsYearToTheField) {
  setBirthYear(anna_, "2020");
  auto& batch = readyForYear();
  inDialog<YearWizard>([](YearWizard& wizard) {
    auto* years = control<FlexGrid>(wizard, "MSFlexGrid1");
    years->setRow(3);
    Q_EMIT years->returnPressed();
  });
  press(batch, "Command12");
  EXPECT_EQ(toUtf8(control<QLineEdit>(batch, "Year")->text()), "2022");
}

TEST_F(BatchYear, WithoutAYearOfBirthThePeopleManagerIsOpenedForIt) {
  auto& batch = readyForYear();
  choosePerson(batch, "Ben"); // chosen in the other list, and not the one asked about
  boxes_.expectMessage(toQString("Please Enter Year Of Birth"));
  inDialog<NamesManager>([this](NamesManager& manager) {
    EXPECT_EQ(manager.caption(), toQString("Update Names"));
    EXPECT_EQ(manager.focusWidget(), control<QWidget>(manager, "txtBirthYear"));
    EXPECT_EQ(control<QLineEdit>(manager, "txtAppearancesNames")->text(), toQString("Anna"));
    control<QLineEdit>(manager, "txtBirthYear")->setText(toQString("1977"));
    press(manager, "OKButton");
  });
  press(batch, "Command12");
  EXPECT_EQ(birthYearOf(anna_), Value(1977));
  EXPECT_TRUE(control<QLineEdit>(batch, "Year")->text().isEmpty()) << "no wizard follows";
}

TEST_F(BatchYear, CancellingThereRenamesNobody) {
  auto& batch = readyForYear();
  choosePerson(batch, "Ben");
  boxes_.expectMessage(toQString("Please Enter Year Of Birth"));
  inDialog<NamesManager>([](NamesManager& manager) { press(manager, "Command2"); });
  press(batch, "Command12");
  Recordset rows(data().AlbumDB);
  rows.Open("Select * From Appearances Order By AppearancesID");
  EXPECT_EQ(rows.Collect("AppearancesNames"), Value("Anna"));
  EXPECT_TRUE(rows.Collect("BirthYear").isNull());
}

} // namespace hearthbook::test
