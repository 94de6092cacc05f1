#include "HelpEntry.h"
#include "NameFilter.h"
#include "PeopleFixture.h"
#include "PeopleRefresh.h"

#include <QGroupBox>
#include <QPlainTextEdit>

namespace hearthbook::test {
namespace {

const QString prompt = QStringLiteral("Please Type Screen Name (up to 20 characters):");
const QString newName = QStringLiteral("New Name");

class NamesManagerTest : public PeopleFixture {
protected:
  /// The dialog over somebody of that name, as "Update" opens it.
  template <class Act> void update(std::int64_t id, Act act, const char* filter = showAllEntry) {
    refreshPeople(caller().controls, people(), filter, 0);
    caller().people->setBoundText(id);
    inDialog<NamesManager>(act);
    caller().commands.updateName();
  }
  /// The dialog over somebody new, as "Add" opens it.
  template <class Act> void add(const char* name, Act act, const char* filter = showAllEntry) {
    refreshPeople(caller().controls, people(), filter, 0);
    boxes_.expectInput(prompt, newName, QString::fromUtf8(name));
    inDialog<NamesManager>(act);
    caller().commands.addName();
  }
  /// "Add New" within the dialog.
  void addAnother(const NamesManager& manager, const char* name) {
    boxes_.expectInput(prompt, newName, QString::fromUtf8(name));
    press(manager, "Command1");
  }
  static QComboBox& relation(const NamesManager& manager) {
    return *control<QComboBox>(manager, "Combo1");
  }
  static std::string relationText(const NamesManager& manager) {
    return toUtf8(relation(manager).currentText());
  }
  static void chooseName(const NamesManager& manager, std::int64_t id) {
    auto* list = control<DataList>(manager, "NamesList");
    list->setFocus();
    list->setBoundText(id);
    Q_EMIT list->chosen();
  }
  static void done(const NamesManager& manager) { press(manager, "OKButton"); }
  static void cancel(const NamesManager& manager) { press(manager, "Command2"); }
  static bool isEnabled(const NamesManager& manager, const char* name) {
    return control(manager, name)->isEnabled();
  }
};

} // namespace

// Ways in

TEST_F(NamesManagerTest, TheFirstNameOfAnEmptyTableIsStoredAsAFamilyMember) {
  add("Anna", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(stored(1, "AppearancesNames"), Value("Anna"));
  EXPECT_EQ(stored(1, "relationID"), Value(0));
  EXPECT_EQ(vars().CurrentPersonID, 1);
}

TEST_F(NamesManagerTest, AnAdditionShowsTheNewPersonAndOffersMore) {
  folder_.addPerson("Zoe");
  add("Anna", [](const NamesManager& manager) {
    EXPECT_EQ(manager.caption(), QStringLiteral("Add New Name"));
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Anna");
    EXPECT_EQ(toUtf8(control<DataList>(manager, "NamesList")->Text()), "Anna");
    EXPECT_EQ(relationText(manager), "Family Member");
    EXPECT_TRUE(control(manager, "Command1")->isVisible());
    EXPECT_TRUE(isEnabled(manager, "OKButton"));
    done(manager);
  });
}

TEST_F(NamesManagerTest, AnUpdateShowsTheChosenPersonAndOffersNoAddition) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Bob");
  update(anna, [](const NamesManager& manager) {
    EXPECT_EQ(manager.caption(), QStringLiteral("Update Selected Name"));
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Anna");
    EXPECT_FALSE(control(manager, "Command1")->isVisible());
    done(manager);
  });
  EXPECT_EQ(vars().CurrentPersonID, anna);
}

TEST_F(NamesManagerTest, WithoutAChosenNameThereIsNothingToUpdate) {
  boxes_.expectMessage(QStringLiteral("Please Select Name To Update"),
                       QStringLiteral("Update Name"), MsgIcon::Exclamation);
  caller().commands.updateName();
  EXPECT_EQ(Forms::loaded<NamesManager>(), nullptr);
}

TEST_F(NamesManagerTest, AnEmptyOrBlankAnswerEndsTheAdditionSilently) {
  for (const char* answer : {"", "   "}) {
    vars().CurrentPersonID = 7;
    boxes_.expectInput(prompt, newName, QString::fromUtf8(answer));
    caller().commands.addName();
    EXPECT_EQ(vars().CurrentPersonID, 0);
  }
  EXPECT_EQ(count(), 0);
}

TEST_F(NamesManagerTest, TheAnswerIsTrimmed) {
  add("  Anna Maria ", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(stored(1, "AppearancesNames"), Value("Anna Maria"));
}

TEST_F(NamesManagerTest, ANameOf21CharactersIsAskedForAgainUntilItIsShorterOrEmpty) {
  boxes_.expectInput(prompt, newName, QStringLiteral("123456789012345678901"));
  boxes_.expectMessage(QStringLiteral("Please Type No More Then 20 Characters"),
                       QStringLiteral("Add Name"));
  add("12345678901234567890", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(stored(1, "AppearancesNames"), Value("12345678901234567890"));

  boxes_.expectInput(prompt, newName, QStringLiteral("123456789012345678901"));
  boxes_.expectMessage(QStringLiteral("Please Type No More Then 20 Characters"),
                       QStringLiteral("Add Name"));
  boxes_.expectInput(prompt, newName, QString());
  caller().commands.addName();
  EXPECT_EQ(count(), 1);
}

TEST_F(NamesManagerTest, TwentyLettersOfAnyScriptPass) {
  add("שרהשרהשרהשרהשרהשרהשר", [](const NamesManager& manager) { done(manager); });
  add("éééééééééééééééééééé", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(count(), 2);
}

TEST_F(NamesManagerTest, CommasAndQuotesArePartOfAName) {
  add("Anna, \"Nana\"; 100%", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(stored(1, "AppearancesNames"), Value("Anna, \"Nana\"; 100%"));
}

TEST_F(NamesManagerTest, AnApostropheWorksOnTheOpenersWayIn) {
  add("O'Brien", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(stored(1, "AppearancesNames"), Value("O'Brien"));
  add("O'Neill", [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(stored(2, "AppearancesNames"), Value("O'Neill"));
}

TEST_F(NamesManagerTest, AnApostropheFailsWithinTheDialog) {
  add("Anna", [this](const NamesManager& manager) {
    boxes_.expectInput(prompt, newName, QStringLiteral("O'Brien"));
    boxes_.expectFailure(QStringLiteral("O'Brien"));
    press(manager, "Command1");
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Anna");
    done(manager);
  });
  EXPECT_EQ(count(), 1);
}

TEST_F(NamesManagerTest, ADuplicateIsRefusedAndTheOpenersListStaysAsItsFilterAsks) {
  const auto anna = folder_.addPerson("Anna");
  folder_.addPerson("Bob", anna);
  refreshPeople(caller().controls, people(), "Anna", 0);
  boxes_.expectInput(prompt, newName, QStringLiteral("BOB"));
  boxes_.expectMessage(QStringLiteral("Screen Name Already Used With The Following Info.\n\n"
                                      "Screen Name: Bob\n\nFirst Name: \n\nLast Name: \n\n"
                                      "Birthday: /\n\nRelation: Anna\n\n"
                                      "Please try to add a different Screen Name"),
                       QStringLiteral("Add Name"), MsgIcon::Information);
  caller().commands.addName();
  EXPECT_EQ(count(), 2);
  EXPECT_EQ(people().Source(), "Select * From Appearances where RelationID = 1 Order By "
                               "AppearancesNames");
  EXPECT_EQ(caller().people->model()->rowCount(), 1);
}

// The relation

TEST_F(NamesManagerTest, TheRelationOfThePersonIsShown) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(bob, [](const NamesManager& manager) {
    EXPECT_EQ(relationText(manager), "Anna");
    done(manager);
  });
  EXPECT_EQ(stored(bob, "relationID"), Value(anna));
}

TEST_F(NamesManagerTest, ARelationToSomebodyOutsideTheFamilyIsShownAndKept) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  const auto carl = folder_.addPerson("Carl", bob);
  update(carl, [](const NamesManager& manager) {
    EXPECT_EQ(relation(manager).currentIndex(), -1);
    EXPECT_EQ(relation(manager).placeholderText(), QStringLiteral("Bob"));
    done(manager);
  });
  EXPECT_EQ(stored(carl, "relationID"), Value(bob));
  EXPECT_EQ(caller().controls.filter().text, "Family Members");
}

TEST_F(NamesManagerTest, AChosenRelationIsStoredAtDone) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob");
  update(bob, [&](const NamesManager& manager) {
    chooseIn(relation(manager), 2);
    EXPECT_EQ(stored(bob, "relationID"), Value(0)) << "no Update yet";
    EXPECT_EQ(people().Collect("relationID"), Value(anna));
    done(manager);
  });
  EXPECT_EQ(stored(bob, "relationID"), Value(anna));
}

TEST_F(NamesManagerTest, NobodyBelongsToHimself) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(anna, [&](const NamesManager& manager) {
    boxes_.expectMessage(QStringLiteral("Please choose a relation other then the selected name!"),
                         QStringLiteral("Relation"));
    chooseIn(relation(manager), 2);
    EXPECT_EQ(relationText(manager), "Family Member");
    done(manager);
  });
  EXPECT_EQ(stored(anna, "relationID"), Value(0));
  EXPECT_EQ(stored(bob, "relationID"), Value(anna));
}

TEST_F(NamesManagerTest, TheSeparatorIsTheFamily) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(bob, [](const NamesManager& manager) {
    chooseIn(relation(manager), 1);
    EXPECT_EQ(relationText(manager), "Family Member");
    done(manager);
  });
  EXPECT_EQ(stored(bob, "relationID"), Value(0));
}

TEST_F(NamesManagerTest, ARenamedFamilyMemberIsRenamedAmongTheRelations) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "Hanna");
    leaveField(manager);
    EXPECT_EQ(relation(manager).itemText(2), QStringLiteral("Hanna"));
    EXPECT_EQ(toUtf8(control<DataList>(manager, "NamesList")->Text()), "Hanna");
    done(manager);
  });
}

// The list of names

TEST_F(NamesManagerTest, AChosenNameIsShownWithItsRelation) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  folder_.addRow("Appearances", {{"AppearancesNames", "Carl"}, {"relationID", Value()}});
  update(anna, [&](const NamesManager& manager) {
    chooseName(manager, bob);
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Bob");
    EXPECT_EQ(relationText(manager), "Anna");
    chooseName(manager, bob + 1);
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Carl");
    EXPECT_EQ(relationText(manager), "-------------------");
    chooseName(manager, anna);
    EXPECT_EQ(relationText(manager), "Family Member");
    done(manager);
  });
}

TEST_F(NamesManagerTest, WhatWasEnteredIsStoredWhenAnotherNameIsChosen) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob");
  update(anna, [&](const NamesManager& manager) {
    type(manager, "txtAFirstName", "Anna Maria");
    chooseName(manager, bob);
    EXPECT_EQ(stored(anna, "AFirstName"), Value("Anna Maria"));
    done(manager);
  });
  EXPECT_EQ(vars().CurrentPersonID, anna) << "the opener chooses the person it asked for";
  EXPECT_EQ(caller().controls.person().id, Value(anna));
}

TEST_F(NamesManagerTest, AnEntryThatKeepsTheFocusKeepsThePersonToo) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob");
  update(anna, [&](const NamesManager& manager) {
    type(manager, "txtBirthDate", "spring");
    boxes_.expectMessage(QStringLiteral("Please enter valid date: 'MM/DD'"),
                         QStringLiteral("Birth Date"), MsgIcon::Critical);
    auto* list = control<DataList>(manager, "NamesList");
    list->setBoundText(bob);
    Q_EMIT list->chosen();
    EXPECT_EQ(text(manager, "txtAppearancesNames"), "Anna");
    EXPECT_EQ(toUtf8(list->Text()), "Anna");
    type(manager, "txtBirthDate", "");
    done(manager);
  });
}

// Done

TEST_F(NamesManagerTest, DoneStoresEveryField) {
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

TEST_F(NamesManagerTest, ARenameLeavesThePhotosAloneAndShowsAtOnce) {
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

TEST_F(NamesManagerTest, AFormWithoutAPhotoKeepsItsNamesAndShowsTheRename) {
  const auto anna = folder_.addPerson("Anna");
  caller().photo = {};
  caller().controls.setNamesInPhoto({{"Anna", anna}});
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "Hanna");
    done(manager);
  });
  EXPECT_EQ(caller().controls.namesInPhoto(), (std::vector<NameEntry>{{"Hanna", anna}}));
}

TEST_F(NamesManagerTest, TheOpenersFilterTakesTheRelation) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(bob, [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(caller().controls.filter(), (NameEntry{"Anna", anna}));
  EXPECT_EQ(caller().controls.person().id, Value(bob));
  update(anna, [](const NamesManager& manager) { done(manager); });
  EXPECT_EQ(caller().controls.filter().text, "Family Members");
  EXPECT_EQ(caller().controls.person().id, Value(anna));
}

TEST_F(NamesManagerTest, ReturnIsDone) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [](const NamesManager& manager) {
    type(manager, "txtAppearancesNames", "Hanna");
    QTest::keyClick(manager.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Hanna"));
}

// Cancel

TEST_F(NamesManagerTest, CancellingAnAdditionRemovesTheRowAndKeepsItsNumber) {
  folder_.addPerson("Zoe");
  add("Anna", [](const NamesManager& manager) { cancel(manager); });
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(vars().CurrentPersonID, 2);
  EXPECT_TRUE(caller().controls.person().id.isNull());
  EXPECT_EQ(caller().controls.filter().text, showAllEntry) << "the filter keeps its text";
}

TEST_F(NamesManagerTest, CancellingAnAdditionRemovesTheNewPersonWhoeverWasChosenSince) {
  const auto zoe = folder_.addPerson("Zoe");
  add("Anna", [&](const NamesManager& manager) {
    chooseName(manager, zoe);
    cancel(manager);
  });
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(stored(zoe, "AppearancesNames"), Value("Zoe"));
}

TEST_F(NamesManagerTest, OnlyTheLatestAdditionIsCancelled) {
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

TEST_F(NamesManagerTest, CancellingAnUpdateWritesBackWhatTheOpenersListsShow) {
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

TEST_F(NamesManagerTest, CancellingAnUpdateSetsTheRelationFromTheFilterInUse) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob", anna);
  update(
      bob, [](const NamesManager& manager) { cancel(manager); }, showAllEntry);
  EXPECT_EQ(stored(bob, "relationID"), Value(0));
}

TEST_F(NamesManagerTest, CancellingAnUpdateNeverWritesToSomebodyElse) {
  const auto anna = folder_.addPerson("Anna");
  const auto bob = folder_.addPerson("Bob");
  update(anna, [&](const NamesManager& manager) {
    chooseName(manager, bob);
    cancel(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
  EXPECT_EQ(stored(bob, "AppearancesNames"), Value("Bob"));
}

TEST_F(NamesManagerTest, ANumberThatBecameNobodysMeanwhileIsNotWrittenTo) {
  const auto anna = folder_.addPerson("Anna");
  update(anna, [this](const NamesManager& manager) {
    vars().CurrentPersonID = 99;
    cancel(manager);
  });
  EXPECT_EQ(stored(anna, "AppearancesNames"), Value("Anna"));
  EXPECT_EQ(count(), 1);
}

TEST_F(NamesManagerTest, EscapeAndClosingTheWindowAreCancel) {
  add("Anna", [](NamesManager& manager) { QTest::keyClick(&manager, Qt::Key_Escape); });
  EXPECT_EQ(count(), 0);
  add("Anna", [](NamesManager& manager) { manager.close(); });
  EXPECT_EQ(count(), 0);
}

// Add New within the dialog

TEST_F(NamesManagerTest, WithinTheDialogALongAnswerIsStoredAndItsFieldStopsIt) {
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

TEST_F(NamesManagerTest, WithinTheDialogTheAnswerIsStoredAsTyped) {
  add("Anna", [this](const NamesManager& manager) {
    addAnother(manager, "  Bob ");
    done(manager);
  });
  EXPECT_EQ(stored(2, "AppearancesNames"), Value("  Bob "));
}

TEST_F(NamesManagerTest, WithinTheDialogABlankAnswerAddsNobody) {
  add("Anna", [this](const NamesManager& manager) {
    addAnother(manager, "  ");
    done(manager);
  });
  EXPECT_EQ(count(), 1);
}

TEST_F(NamesManagerTest, WithinTheDialogADuplicateIsRefusedAndThePersonStays) {
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

TEST_F(NamesManagerTest, AnEmptiedNameIsNoEditAndCannotBeDone) {
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

TEST_F(NamesManagerTest, DoneAsksForTheNameIfItIsEmpty) {
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

TEST_F(NamesManagerTest, ANameOf21CharactersInTheFieldIsEmptied) {
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

TEST_F(NamesManagerTest, ANameThatTheAlbumRefusesIsNotStoredAndNothingIsSaid) {
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

TEST_F(NamesManagerTest, ANameThatTheAlbumRefusesIsToldAtDoneAndTheDialogStays) {
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

TEST_F(NamesManagerTest, ABirthdayIsWrittenAsMonthAndDay) {
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

TEST_F(NamesManagerTest, ABirthdayThatIsNoDateKeepsTheFocusAndStopsCommands) {
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

TEST_F(NamesManagerTest, OnlyAYearThatIsNeitherANumberNorOfFourCharactersIsRefused) {
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

// Hover help

TEST_F(NamesManagerTest, EveryControlWithAKeyExplainsItself) {
  add("Bob", [&](const NamesManager& manager) {
    auto* pane = control<QGroupBox>(manager, "Help");
    EXPECT_EQ(pane->title(), QStringLiteral("Help"));
    const std::pair<const char*, const char*> keys[] = {
        {"NamesList", "Name List"},    {"txtAppearancesNames", "Screen Name"},
        {"Combo1", "Relation"},        {"txtAFirstName", "First Name"},
        {"txtALastName", "Last Name"}, {"txtBirthDate", "Birthday"},
        {"txtBirthYear", "Birthday"},  {"Command1", "Add New"},
    };
    for (const auto& [name, item] : keys) {
      QWidget* under = control(manager, name);
      if (auto* list = qobject_cast<DataList*>(under))
        under = list->viewport();
      hover(*under);
      EXPECT_EQ(toUtf8(pane->title()), item) << name;
      const auto entry = findHelp(*vars().rsHelp, std::string("Name Properties*") + item);
      EXPECT_EQ(toUtf8(control<QPlainTextEdit>(manager, "Text1")->toPlainText()), entry.text);
    }
    done(manager);
  });
}

} // namespace hearthbook::test
