#include "BoundControls.h"
#include "EditorFixture.h"
#include "FlexGrid.h"
#include "NameItems.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>

namespace hearthbook::test {
namespace {

/// The editor on HD00002, with Anna, who is marked, and her cousin Bob in the photo.
class EditorPeople : public EditorFixture {
protected:
  EditorPeople() {
    folder_.addPlace("Lake");
    folder_.addEvent("Picnic");
    folder_.addRow("Appearances",
                   {{"AppearancesNames", "Anna"}, {"relationID", 0}, {"BirthYear", 2020}});
    data().rsAppearances.Requery();
    folder_.addPerson("Bob", 1);
    folder_.addPhoto("HD00002", {{"PlaceID", 1},
                                 {"EventID", 1},
                                 {"NamesInPhoto", "001,002,"},
                                 {"NamesCords", "001-0100X0200,"}});
    folder_.addPhoto("HD00003");
    photos().MoveNext();
    editor_ = &openEditor();
  }

  /// What the user does in the dialog that the next command opens.
  template <class Dialog, class Act> void inDialog(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = Forms::loaded<Dialog>();
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
      if (Forms::loaded<Dialog>() == dialog)
        dialog->Unload();
    });
  }
  std::vector<NameEntry> namesInPhoto() const {
    return entriesOf(*control<QListWidget>(*editor_, "List2"));
  }
  QComboBox& filter() const { return *control<QComboBox>(*editor_, "Combo1"); }
  DataList& people() const { return *control<DataList>(*editor_, "DataList1"); }

  DBeditor* editor_ = nullptr;
};

} // namespace

TEST_F(EditorPeople, AddPutsSomebodyIntoTheListAndChoosesThem) {
  boxes_.expectInput(QStringLiteral("Please Type Screen Name (up to 20 characters):"),
                     QStringLiteral("New Name"), QStringLiteral("Carl"));
  inDialog<NamesManager>([](const NamesManager& manager) { press(manager, "OKButton"); });
  press(*editor_, "Command19");
  EXPECT_EQ(people().Text(), QStringLiteral("Carl"));
  EXPECT_EQ(filter().currentText(), QStringLiteral("Family Members"));
  EXPECT_GE(filter().findText(QStringLiteral("Carl")), 0);
}

TEST_F(EditorPeople, ARenameShowsAmongTheNamesOfThePhoto) {
  people().setBoundText(1);
  inDialog<NamesManager>([](const NamesManager& manager) {
    control<QLineEdit>(manager, "txtAppearancesNames")->setText(QStringLiteral("Hanna"));
    press(manager, "OKButton");
  });
  press(*editor_, "Command11");
  EXPECT_EQ(namesInPhoto(), (std::vector<NameEntry>{{"*Hanna", 1}, {"Bob", 2}}));
  EXPECT_EQ(stored("HD00002", "NamesInPhoto"), Value("001,002,"));
}

TEST_F(EditorPeople, WhatIsTypedOfThePhotoOutlivesTheDialog) {
  people().setBoundText(1);
  control<QLineEdit>(*editor_, "Year")->setText(QStringLiteral("1999"));
  inDialog<NamesManager>([](const NamesManager& manager) { press(manager, "OKButton"); });
  press(*editor_, "Command11");
  EXPECT_EQ(control<QLineEdit>(*editor_, "Year")->text(), QStringLiteral("1999"));
  EXPECT_EQ(currentId(), "HD00002");
  press(*editor_, "NextPhoto");
  EXPECT_EQ(stored("HD00002", "Year"), Value(1999));
}

TEST_F(EditorPeople, UpdateWithoutAChosenNameIsRefused) {
  boxes_.expectMessage(QStringLiteral("Please Select Name To Update"),
                       QStringLiteral("Update Name"), MsgIcon::Exclamation);
  press(*editor_, "Command11");
}

TEST_F(EditorPeople, AYearFromTheWizardIsAnEdit) {
  control<QListWidget>(*editor_, "List2")->setCurrentRow(0);
  inDialog<YearWizard>([](const YearWizard& wizard) {
    auto* years = control<FlexGrid>(wizard, "MSFlexGrid1");
    EXPECT_EQ(years->cellText(0, 1), QStringLiteral("Anna")) << "without the mark of a marker";
    QTest::mouseClick(years->viewport(), Qt::LeftButton, {},
                      QPoint(5, years->rowViewportPosition(2) + 5));
  });
  press(*editor_, "Command12");
  EXPECT_EQ(control<QLineEdit>(*editor_, "Year")->text(), QStringLiteral("2022"));
  EXPECT_EQ(stored("HD00002", "Year"), Value()) << "not yet";
  press(*editor_, "NextPhoto");
  EXPECT_EQ(stored("HD00002", "Year"), Value(2022));
}

TEST_F(EditorPeople, FindYearAsksForAName) {
  boxes_.expectMessage(QStringLiteral("Please Select Name"));
  press(*editor_, "Command12");
  EXPECT_TRUE(control<QListWidget>(*editor_, "List2")->hasFocus());
}

TEST_F(EditorPeople, FindYearAsksForAnEventFirst) {
  press(*editor_, "NextPhoto");
  boxes_.expectMessage(QStringLiteral("Please Choose Event"));
  press(*editor_, "Command12");
  EXPECT_TRUE(control<DataCombo>(*editor_, "EventsDrp")->hasFocus());
}

TEST_F(EditorPeople, WithoutAPhotoThereIsNoYearToFind) {
  photos().Filter("PictureID = 'none'");
  editor_->ComposeRecord();
  EXPECT_FALSE(isEnabled(*editor_, "Command12"));
  EXPECT_TRUE(isEnabled(*editor_, "Command19"));
}

} // namespace hearthbook::test
