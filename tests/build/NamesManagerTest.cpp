#include "NamesManagerFixture.h"

namespace hearthbook::test {
namespace {

class NamesManagerTest : public NamesManagerFixture {};

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

} // namespace hearthbook::test
