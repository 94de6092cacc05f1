#include "ControlChecks.h"
#include "PeopleFixture.h"

#include <QPlainTextEdit>

namespace hearthbook::test {
namespace {

const Control managerControls[] = {
    {"NamesList", "hearthbook::DataList", "", "Name List"},
    {"txtAppearancesNames", "QLineEdit", "", "Screen Name"},
    {"txtAFirstName", "QLineEdit", "", "First Name"},
    {"txtALastName", "QLineEdit", "", "Last Name"},
    {"txtBirthDate", "QLineEdit", "", "Birthday"},
    {"txtBirthYear", "QLineEdit", "", "Birthday"},
    {"Combo1", "QComboBox", "", "Relation"},
    {"OKButton", "QPushButton", "Done"},
    {"Command2", "QPushButton", "Cancel"},
    {"Command1", "QPushButton", "Add New", "Add New"},
    {"Help", "QGroupBox", "Help", "Help"},
    {"Text1", "QPlainTextEdit", "", "Help"},
    {"propertiesFrame", "QGroupBox", "Properties"},
    {"contactFrame", "QGroupBox", "Contact Info."},
    {"txtAppearancesNamesLabel", "QLabel", "Screen Name:"},
    {"txtAFirstNameLabel", "QLabel", "First Name:"},
    {"txtALastNameLabel", "QLabel", "Last Name:"},
    {"birthdayLabel", "QLabel", "Birthday:"},
    {"txtBirthDateLabel", "QLabel", "MM/DD:"},
    {"txtBirthYearLabel", "QLabel", "YEAR:"},
    {"Combo1Label", "QLabel", "Relation:"},
};

const Control wizardControls[] = {
    {"MSFlexGrid1", "hearthbook::FlexGrid"},
    {"Label2", "QLabel", "Click the Year that matches the year the current photo was taken."},
};

class PeopleDialogs : public PeopleFixture {};

} // namespace

TEST_F(PeopleDialogs, TheNamesManagerHasEachOfItsControlsOnce) {
  const auto& manager = Forms::get<NamesManager>();
  EXPECT_EQ(manager.caption(), QStringLiteral("Update Names"));
  expectControls(manager, "Name Properties", managerControls);
}

TEST_F(PeopleDialogs, TheYearWizardHasEachOfItsControlsOnce) {
  const auto& wizard = Forms::get<YearWizard>();
  EXPECT_EQ(wizard.caption(), QStringLiteral("Year Wizard"));
  expectControls(wizard, "", wizardControls);
}

TEST_F(PeopleDialogs, TabReachesEveryControlOfTheNamesManagerBothWays) {
  folder_.addPerson("Anna");
  auto& manager = Forms::get<NamesManager>();
  manager.workOn(caller().controls);
  manager.beginAddition();
  manager.Show();
  expectTabReachesAll(manager, control(manager, "txtAFirstName"), 11);
}

TEST_F(PeopleDialogs, TheMouseOverTheNamesManagerExplainsEachControlInThePane) {
  folder_.addPerson("Anna");
  auto& manager = Forms::get<NamesManager>();
  manager.beginAddition();
  manager.Show();
  const auto pane = [&manager] {
    return HelpEntry{toUtf8(control<QGroupBox>(manager, "Help")->title()),
                     toUtf8(control<QPlainTextEdit>(manager, "Text1")->toPlainText())};
  };
  EXPECT_EQ(pane(), findHelp(*vars().rsHelp, "Name Properties*Help"));
  EXPECT_EQ(expectMouseExplains(manager, "Name Properties", managerControls, pane, *vars().rsHelp),
            10);
}

TEST_F(PeopleDialogs, TabReachesTheYearsOfTheWizard) {
  auto& wizard = Forms::get<YearWizard>();
  wizard.Show();
  expectTabReachesAll(wizard, control(wizard, "MSFlexGrid1"), 1);
}

TEST_F(PeopleDialogs, BothFitIntoASmallScreen) {
  for (const Form* form :
       std::initializer_list<Form*>{&Forms::get<NamesManager>(), &Forms::get<YearWizard>()}) {
    EXPECT_LE(form->minimumSizeHint().width(), 1000);
    EXPECT_LE(form->minimumSizeHint().height(), 680);
  }
}

} // namespace hearthbook::test
