#include "SubAlbumFixture.h"

#include "ControlChecks.h"

#include <QGroupBox>

namespace hearthbook::test {

namespace {

constexpr Control subAlbumControls[] = {
    {"Label2", "QLabel", "Select Sub-Album to update or click 'Create Sub-Album'"},
    {"Label1", "QLabel", "Select Sub-Album:"},
    {"SubAlbumList", "hearthbook::DataList", "", "Sub-Album List"},
    {"Command1", "QPushButton", "Create Sub-Album", "Add New Sub-Album"},
    {"Command2", "QPushButton", "Delete", "Delete"},
    {"frmProperties", "QGroupBox", "Properties"},
    {"albumNameLabel", "QLabel", "Album Name:"},
    {"txtAlbumName", "QLineEdit", "", "Album Name"},
    {"descriptionLabel", "QLabel", "Description:"},
    {"txtDescription", "QPlainTextEdit", "", "Description"},
    {"Command3", "QPushButton", "Add Background Audio", "Add Background Audio"},
    {"Combo1", "QComboBox", "", "Sort options"},
    {"lblWait", "QLabel"},
    {"lblCount", "QLabel"},
    {"Picture2", "hearthbook::StripPage", "", "DragDrop"},
    {"Picture3", "hearthbook::StripZone"},
    {"Picture4", "hearthbook::StripZone"},
    {"VScroll1", "QScrollBar"},
    {"Shape1", "QWidget"},
    {"Image2", "QWidget"},
    {"Image3", "QWidget"},
    {"OKButton", "QPushButton", "Add Photos To Selected Album", "Add Photos To Selected"},
    {"CancelButton", "QPushButton", "Done"},
    {"Help", "QGroupBox", "Help", "Help"},
    {"Text1", "QPlainTextEdit", "", "Help"},
};

class SubAlbumControls : public SubAlbumFixture {
protected:
  AddSubAlbum& openOnLake() {
    const auto lake = addAlbumUpTo(20);
    auto& form = openForEditor();
    choose(form, lake);
    return form;
  }
};

} // namespace

TEST_F(SubAlbumControls, StandOnTheFormAsTold) {
  addPhotoRows(folder_, 2);
  auto& form = Forms::get<AddSubAlbum>();
  EXPECT_EQ(form.caption(), toQString("Sub-Album Editor"));
  control<QGroupBox>(form, "Help")->setTitle(toQString("Help")); // as drawn
  expectControls(form, "Sub-Album Editor", subAlbumControls);
  EXPECT_EQ(form.findChildren<QWidget*>(QStringLiteral("Image1")).size(), 18);
  QStringList choices;
  for (int at = 0; at < control<QComboBox>(form, "Combo1")->count(); ++at)
    choices << control<QComboBox>(form, "Combo1")->itemText(at);
  EXPECT_EQ(choices.join(QLatin1Char('|')),
            toQString("Select Auto Arrange:|By Year|By Event|By Place|By scan order|Manually"));
}

TEST_F(SubAlbumControls, TheMouseExplainsThem) {
  auto& form = openOnLake();
  const auto pane = [&form] {
    return HelpEntry{toUtf8(control<QGroupBox>(form, "Help")->title()),
                     toUtf8(control<QPlainTextEdit>(form, "Text1")->toPlainText())};
  };
  EXPECT_EQ(pane(), findHelp(*vars().rsHelp, "Sub-Album Editor*Help"));
  EXPECT_GE(expectMouseExplains(form, "Sub-Album Editor", subAlbumControls, pane, *vars().rsHelp),
            9);
  const StripCell& photo = cell(form, 3);
  QTest::mouseMove(const_cast<StripCell*>(&photo), photo.rect().center());
  QTest::mouseMove(const_cast<StripCell*>(&photo), photo.rect().center() + QPoint(1, 1));
  EXPECT_EQ(pane(), findHelp(*vars().rsHelp, "Sub-Album Editor*DragDrop"));
}

TEST_F(SubAlbumControls, TabReachesEachBothWaysAndAllPhotosAreOneStop) {
  auto& form = openOnLake();
  expectTabReachesAll(form, control<QWidget>(form, "txtAlbumName"), 9);
}

} // namespace hearthbook::test
