#include "ControlChecks.h"
#include "FaceChecks.h"
#include "HelpRows.h"
#include "SearchFixture.h"

namespace hearthbook::test {

namespace {

const Control searchControls[] = {
    {"List1", "hearthbook::ChoiceList", "", "Places"},
    {"List2", "hearthbook::ChoiceList", "", "Events"},
    {"List3", "hearthbook::ChoiceList", "", "Names"},
    {"Command6", "QPushButton", "Clear Selection", "Clear Selection"},
    {"Command7", "QPushButton", "Clear Selection", "Clear Selection"},
    {"Command8", "QPushButton", "Clear Selection", "Clear Selection"},
    {"placesLabel", "QLabel", "Places"},
    {"eventsLabel", "QLabel", "Events"},
    {"namesLabel", "QLabel", "Names"},
    {"yearsLabel", "QLabel", "Years"},
    {"fromLabel", "QLabel", "From:"},
    {"FromYear", "QLineEdit", "", "From Year"},
    {"toLabel", "QLabel", "To:"},
    {"ToYear", "QLineEdit", "", "To Year"},
    {"descriptionLabel", "QLabel", "Description"},
    {"Description", "QLineEdit", "", "Description"},
    {"sortLabel", "QLabel", "Sort By"},
    {"SortBy", "QComboBox", "", "Sort By"},
    {"Command1", "QPushButton", "Search", "Search"},
    {"Command12", "QPushButton", "|<<", "Navigation Buttons"},
    {"Command3", "QPushButton", "<<", "Navigation Buttons"},
    {"PosLabel", "QLabel", ""},
    {"Command2", "QPushButton", ">>", "Navigation Buttons"},
    {"Command13", "QPushButton", ">>|", "Navigation Buttons"},
    {"Command4", "QPushButton", "View", "View"},
    {"Command5", "QPushButton", "Edit", "Edit"},
    {"Command10", "QPushButton", "Add All To Sub-Album", "Add To Sub-Album"},
    {"Command11", "QPushButton", "Batch Edit", "Batch Edit"},
    {"Command14", "QPushButton", "No Selection", "Clear All Selections"},
    {"Command9", "QPushButton", "Done", "Done"},
};

const Faces searchFaces = {
    {"Btn_Grn.jpg", {"Command1"}},
    {"Btn_Gry.jpg", {"Command2", "Command3", "Command12", "Command13"}},
    {"Btn_Org.jpg", {"Command4", "Command5", "Command10", "Command11", "Command14"}},
    {"Btn_Brn.jpg", {"Command9"}},
};

class SearchControls : public SearchFixture {};

} // namespace

TEST_F(SearchControls, TheFormHasEachOfItsControlsOnce) {
  expectControls(openSearch(), "Search Album", searchControls);
}

TEST_F(SearchControls, EachButtonTakesItsFaceFromMedia) {
  paintFaces(at("Media"), searchFaces);
  expectFaces(openSearch(), searchFaces);
}

TEST_F(SearchControls, The24ThumbnailsHaveTheirFramesAndOneHelp) {
  const auto& search = openSearch();
  EXPECT_EQ(search.findChildren<ResultCell*>(toQString("Image1")).size(), 24);
  EXPECT_EQ(search.findChildren<QWidget*>(toQString("Shape1")).size(), 24);
  for (const auto* image : search.findChildren<ResultCell*>())
    EXPECT_EQ(image->property("helpKey").toString(), toQString("Search Album*Thumbnails"));
}

TEST_F(SearchControls, EveryHelpKeyHasItsRow) { expectHelpRows(openSearch(), *vars().rsHelp); }

TEST_F(SearchControls, TheMouseOverAThumbnailAsksForItsHelp) {
  const auto& search = searchAmong(2);
  QTest::mouseMove(&cell(search, 1), QPoint(3, 3));
  QTest::mouseMove(&cell(search, 1), QPoint(6, 6));
  EXPECT_TRUE(frame_.keys.contains(toQString("Search Album*Thumbnails")));
}

TEST_F(SearchControls, TabReachesEveryControlBothWaysAndStopsOnceAmongThePhotos) {
  folder_.addPlace("Home");
  auto& search = searchAmong(30);
  click(search, 4);
  expectTabReachesAll(search, control<QWidget>(search, "List1"), 22);
  int stops = 0;
  for (const auto* image : search.findChildren<ResultCell*>())
    stops += (image->focusPolicy() & Qt::TabFocus) != 0 ? 1 : 0;
  EXPECT_EQ(stops, 1);
}

TEST_F(SearchControls, EveryCaptionFitsItsControl) {
  auto& search = searchAmong(2);
  control<QLabel>(search, "PosLabel")->setText(toQString("199985 to 200000 of 200000"));
  control<QAbstractButton>(search, "Command14")->setText(toQString("Clear Selection (32767)"));
  for (const QSize size : {QSize(790, 522), QSize(1012, 669), QSize(3000, 1982)}) {
    search.resize(size);
    for (const QAbstractButton* button : search.findChildren<QAbstractButton*>())
      EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8)
          << toUtf8(button->text());
    for (const QLabel* label : search.findChildren<QLabel*>()) {
      if (label->wordWrap())
        continue;
      EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width())
          << toUtf8(label->text());
    }
  }
}

} // namespace hearthbook::test
