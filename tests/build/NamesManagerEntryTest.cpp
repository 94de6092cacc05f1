#include "NamesManagerFixture.h"

namespace hearthbook::test {
namespace {

class NamesManagerEntryTest : public NamesManagerFixture {};

} // namespace

// Done

TEST_F(NamesManagerEntryTest, DoneStoresEveryField) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAFirstName", "Anna");
    type(manager, "txtALastName", "O'Hill");
    type(manager, "txtBirthDate", "Dec 31");
    type(manager, "txtBirthYear", "1977");
    done(manager);
  });
  EXPECT_EQ(stored(anna, "AFirstName"), Value("Anna"));
  EXPECT_EQ(stored(anna, "ALastName"), Value("O'Hill"));
  EXPECT_EQ(stored(anna, "BirthDate"), Value("12/31"));
  EXPECT_EQ(stored(anna, "BirthYear"), Value(1977));
}

TEST_F(NamesManagerEntryTest, ARenameLeavesThePhotosAloneAndShowsAtOnce) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPhoto("HD00002", {{"NamesInPhoto", "001,"}, {"NamesCords", "001-0100X0200,"}});
  caller().photo = {"001,", "001-0100X0200,"};
  caller().controls.setNamesInPhoto({{"*Anna", anna}});
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "Hanna");
    done(manager);
  });
  EXPECT_EQ(caller().controls.namesInPhoto(), (std::vector<NameEntry>{{"*Hanna", anna}}));
  Recordset photos(data().AlbumDB);
  photos.Open("Select * From PhotoAlbum Where PictureID = 'HD00002'");
  EXPECT_EQ(photos.Collect("NamesInPhoto"), Value("001,"));
}

TEST_F(NamesManagerEntryTest, AFormWithoutAPhotoKeepsItsNamesAndShowsTheRename) {
  const auto anna = folder_.addPerson("Anna");
  caller().photo = {};
  caller().controls.setNamesInPhoto({{"Anna", anna}});
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "Hanna");
    done(manager);
  });
  EXPECT_EQ(caller().controls.namesInPhoto(), (std::vector<NameEntry>{{"Hanna", anna}}));
}

TEST_F(NamesManagerEntryTest, TheOpenersFilterTakesTheRelation) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(bob, [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(caller().controls.filter(), (NameEntry{"Anna", anna}));
  EXPECT_EQ(caller().controls.person().id, Value(bob));
  update(anna, [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(caller().controls.filter().text, "Family Members");
  EXPECT_EQ(caller().controls.person().id, Value(anna));
}

TEST_F(NamesManagerEntryTest, ReturnIsDone) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "Hanna");
    QTest::keyClick(manager.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Hanna"));
}

// Cancel

TEST_F(NamesManagerEntryTest, CancellingAnAdditionRemovesTheRowAndKeepsItsNumber) {
  folder_.addPerson("Zoe");
  add("Anna", [](const NamesManager& manager) { cancel(manager); });
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(vars().CurrentPersonID, 2);
  EXPECT_TRUE(caller().controls.person().id.isNull());
  EXPECT_EQ(caller().controls.filter().text, showAllEntry) << "the filter keeps its text";
}

TEST_F(NamesManagerEntryTest, CancellingAnAdditionRemovesTheNewPersonWhoeverWasChosenSince) {
  const auto zoe = folder_.addPerson("Zoe");
  add("Anna", [&](const NamesManager& manager) {
    chooseName(manager, zoe);
    cancel(manager);
  });
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(stored(zoe, "AppearancesNames"), Value("Zoe"));
}

TEST_F(NamesManagerEntryTest, OnlyTheLatestAdditionIsCancelled) {
  add("Anna", [this](const NamesManager& manager) {
    addAnother(manager, "Bob");
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Bob");
    EXPECT_TRUE(control(manager, "txtAppearancesNames")->hasFocus());
    EXPECT_EQ(vars().CurrentPersonID, 2);
    cancel(manager);
  });
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(stored(1, "AppearancesNames"), Value("Anna"));
}

TEST_F(NamesManagerEntryTest, CancellingAnUpdateWritesBackWhatTheOpenersListsShow) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(
      bob,
      [&](const NamesManager& manager) {
        type(manager, "txtAppearancesNames", "Robert");
        leaveField(manager);
        EXPECT_EQ(stored(bob, "AppearancesNames"), Value("Robert"));
        chooseIn(relation(manager), 0);
        type(manager, "txtAFirstName", "Robert");
        cancel(manager);
      },
      "Anna");
  EXPECT_EQ(stored(bob, "AppearancesNames"), Value("Bob"));
  EXPECT_EQ(stored(bob, "relationID"), Value(anna));
  EXPECT_EQ(stored(bob, "AFirstName"), Value());
  EXPECT_EQ(caller().controls.filter().text, "Anna");
}

TEST_F(NamesManagerEntryTest, CancellingAnUpdateSetsTheRelationFromTheFilterInUse) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(
      bob, [](const NamesManager& manager) { cancel(manager); }, showAllEntry);
  EXPECT_EQ(stored(bob, "relationID"), Value(0));
}

TEST_F(NamesManagerEntryTest, CancellingAnUpdateNeverWritesToSomebodyElse) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob");
  update(anna, [&](const NamesManager& manager) {
    chooseName(manager, bob);
    cancel(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
  EXPECT_EQ(stored(bob, "AppearancesNames"), Value("Bob"));
}

TEST_F(NamesManagerEntryTest, ANumberThatBecameNobodysMeanwhileIsNotWrittenTo) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [this](const NamesManager& manager) {
    vars().CurrentPersonID = 99;
    cancel(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
  EXPECT_EQ(count(), 1);
}

TEST_F(NamesManagerEntryTest, EscapeAndClosingTheWindowAreCancel) {
  add("Anna", [](NamesManager& manager) { QTest::keyClick(&manager, Qt::Key_Escape); });
  EXPECT_EQ(count(), 0);
  add("Anna", [](NamesManager& manager) { manager.close(); });
  EXPECT_EQ(count(), 0);
}

// Add New within the dialog

TEST_F(NamesManagerEntryTest, WithinTheDialogALongAnswerIsStoredAndItsFieldStopsIt) {
  add("Anna", [this](const NamesManager& manager) {
    addAnother(manager, "123456789012345678901");
    EXPECT_EQ(stored(2, "AppearancesNames"), Value("123456789012345678901"));
    boxes_.expectMessage(QStringLiteral("Please Type No More Then 20 Charaters"),
                         QStringLiteral("Add Name"));
    leaveField(manager);
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "");
    EXPECT_TRUE(control(manager, "txtAppearancesNames")->hasFocus());
    type(manager, "txtAppearancesNames", "Bob");
    done(manager);
  });
  EXPECT_EQ(stored(2, "AppearancesNames"), Value("Bob"));
}

TEST_F(NamesManagerEntryTest, WithinTheDialogTheAnswerIsStoredAsTyped) {
  add("Anna", [this](const NamesManager& manager) {
    addAnother(manager, "  Bob ");
    done(manager);
  });
  EXPECT_EQ(stored(2, "AppearancesNames"), Value("  Bob "));
}

TEST_F(NamesManagerEntryTest, WithinTheDialogABlankAnswerAddsNobody) {
  add("Anna", [this](const NamesManager& manager) {
    addAnother(manager, "  ");
    done(manager);
  });
  EXPECT_EQ(count(), 1);
}

TEST_F(NamesManagerEntryTest, WithinTheDialogADuplicateIsRefusedAndThePersonStays) {
  folder_.addPerson("Zoe");
  add("Anna", [this](const NamesManager& manager) {
    boxes_.expectInput(prompt, newName, QStringLiteral("zoe"));
    boxes_.expectMessage(QStringLiteral("Screen Name Already Used With The Following Info.\n\n"
                                        "Screen Name: Zoe\n\nFirst Name: \n\nLast Name: \n\n"
                                        "Birthday: /\n\nRelation: Family Member\n\n"
                                        "Please try to add a different Screen Name"),
                         QStringLiteral("Add Name"), MsgIcon::Information);
    press(manager, "Command1");
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Anna");
    done(manager);
  });
  EXPECT_EQ(count(), 2);
}

// Leaving the fields

TEST_F(NamesManagerEntryTest, AnEmptiedNameIsNoEditAndCannotBeDone) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [&](const NamesManager& manager) {
    type(manager, "txtAFirstName", "Anna Maria");
    type(manager, "txtAppearancesNames", "  ");
    leaveField(manager);
    EXPECT_FALSE(isEnabled(manager, "OKButton"));
    EXPECT_EQ(text(manager, "txtAFirstName"), "") << "the row's edit is cancelled";
    EXPECT_FALSE(people().isPending());
    type(manager, "txtAppearancesNames", "Hanna");
    leaveField(manager);
    EXPECT_TRUE(isEnabled(manager, "OKButton"));
    done(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Hanna"));
}

TEST_F(NamesManagerEntryTest, DoneAsksForTheNameIfItIsEmpty) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [this](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "");
    boxes_.expectMessage(QStringLiteral("Please fill the screen name"), {}, MsgIcon::Exclamation);
    QTest::keyClick(manager.focusWidget(), Qt::Key_Return);
    EXPECT_NE(Forms::loaded<NamesManager>(), nullptr);
    cancel(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
}

TEST_F(NamesManagerEntryTest, ANameOf21CharactersInTheFieldIsEmptied) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [this](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "123456789012345678901");
    boxes_.expectMessage(QStringLiteral("Please Type No More Then 20 Charaters"),
                         QStringLiteral("Add Name"));
    leaveField(manager);
    EXPECT_TRUE(control(manager, "txtAppearancesNames")->hasFocus());
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "");
    type(manager, "txtAppearancesNames", "12345678901234567890");
    done(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("12345678901234567890"));
}

TEST_F(NamesManagerEntryTest, ANameThatTheAlbumRefusesIsNotStoredAndNothingIsSaid) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Bob");
  update(anna, [&](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "bob");
    leaveField(manager);
    EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
    cancel(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
}

TEST_F(NamesManagerEntryTest, ANameThatTheAlbumRefusesIsToldAtDoneAndTheDialogStays) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Bob");
  update(anna, [&](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "bob");
    boxes_.expectFailure(QStringLiteral("this name is there already"));
    done(manager);
    EXPECT_NE(Forms::loaded<NamesManager>(), nullptr);
    type(manager, "txtAppearancesNames", "Hanna");
    done(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Hanna"));
}

TEST_F(NamesManagerEntryTest, ABirthdayIsWrittenAsMonthAndDay) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtBirthDate", "1/5");
    leaveField(manager);
    EXPECT_EQ(text(manager, "txtBirthDate"), "01/05");
    type(manager, "txtBirthDate", "");
    leaveField(manager);
    EXPECT_EQ(text(manager, "txtBirthDate"), "");
    done(manager);
  });
}

TEST_F(NamesManagerEntryTest, ABirthdayThatIsNoDateKeepsTheFocusAndStopsCommands) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [this](const NamesManager& manager) {
    type(manager, "txtBirthDate", "  spring ");
    for (int tries = 0; tries < 2; ++tries) {
      boxes_.expectMessage(QStringLiteral("Please enter valid date: 'MM/DD'"),
                           QStringLiteral("Birth Date"), MsgIcon::Critical);
      tries == 0 ? leaveField(manager) : done(manager);
      EXPECT_TRUE(control(manager, "txtBirthDate")->hasFocus());
    }
    EXPECT_EQ(text(manager, "txtBirthDate"), "spring");
    type(manager, "txtBirthDate", "");
    done(manager);
  });
}

TEST_F(NamesManagerEntryTest, OnlyAYearThatIsNeitherANumberNorOfFourCharactersIsRefused) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [this](const NamesManager& manager) {
    for (const char* accepted : {"77", "abcd", "0", "3000", "-5"}) {
      type(manager, "txtBirthYear", accepted);
      leaveField(manager);
      EXPECT_FALSE(control(manager, "txtBirthYear")->hasFocus()) << accepted;
    }
    type(manager, "txtBirthYear", "12a");
    boxes_.expectMessage(QStringLiteral("Invalid entry, please type 4 digit year (i.e 1977)"),
                         QStringLiteral("Year"), MsgIcon::Exclamation);
    leaveField(manager);
    EXPECT_TRUE(control(manager, "txtBirthYear")->hasFocus());
    type(manager, "txtBirthYear", "-5");
    done(manager);
  });
  EXPECT_EQ(stored(anna, "BirthYear"), Value(-5));
}

} // namespace hearthbook::test
