#include "FlexGrid.h"
#include "PeopleFixture.h"
#include "RunTimeError.h"

#include <QHeaderView>
#include <QLabel>

namespace hearthbook::test {
namespace {

class YearWizardTest : public PeopleFixture {
protected:
  YearWizardTest() {
    folder_.addPlace("Lake");
    folder_.addEvent("Picnic");
    folder_.addPerson("Anna");
    caller().places->setText(QStringLiteral("Lake"));
    caller().events->setText(QStringLiteral("Picnic"));
    caller().controls.setNamesInPhoto({{"*Anna", 1}});
    caller().names->setCurrentRow(0);
  }

  void born(const Value& year) {
    people().MoveFirst();
    people().Collect("BirthYear", year);
    people().Update();
  }
  /// A photo of Anna at the lake and at the picnic.
  void photoOf(int year) {
    folder_.addRow("PhotoAlbum", {{"PictureID", "HD" + std::to_string(20000 + year)},
                                  {"Year", year},
                                  {"PlaceID", 1},
                                  {"EventID", 1},
                                  {"NamesInPhoto", "001,"}});
  }
  template <class Act> void findYear(Act act) {
    inDialog<YearWizard>(act);
    caller().commands.findYear();
  }
  static FlexGrid& grid(const YearWizard& wizard) {
    return *control<FlexGrid>(wizard, "MSFlexGrid1");
  }
  static QPoint cellAt(const FlexGrid& years, int row, int col) {
    return {years.columnViewportPosition(col) + 5, years.rowViewportPosition(row - 1) + 5};
  }
  static void click(const YearWizard& wizard, int row, int col) {
    FlexGrid& years = grid(wizard);
    QTest::mouseClick(years.viewport(), Qt::LeftButton, {}, cellAt(years, row, col));
  }
  static void leave(YearWizard& wizard) { QTest::keyClick(&wizard, Qt::Key_Escape); }
};

} // namespace

// Find Year

TEST_F(YearWizardTest, AnEventAPlaceAndANameMustBeChosenInThisOrder) {
  caller().events->setBoundText({});
  caller().places->setBoundText({});
  caller().names->clearSelection();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&caller()));
  boxes_.expectMessage(QStringLiteral("Please Choose Event"));
  caller().commands.findYear();
  EXPECT_TRUE(caller().events->hasFocus());
  caller().events->setText(QStringLiteral("Picnic"));
  boxes_.expectMessage(QStringLiteral("Please Choose Place"));
  caller().commands.findYear();
  EXPECT_TRUE(caller().places->hasFocus());
  caller().places->setText(QStringLiteral("Lake"));
  boxes_.expectMessage(QStringLiteral("Please Select Name"));
  caller().commands.findYear();
  EXPECT_TRUE(caller().names->hasFocus());
  EXPECT_EQ(people().Source(), "Select * From Appearances Order By AppearancesNames");
  EXPECT_EQ(Forms::loaded<YearWizard>(), nullptr);
}

TEST_F(YearWizardTest, AMissingYearOfBirthIsAskedForAndStored) {
  boxes_.expectInput(QStringLiteral("Please enter Year Of Birth for Anna (4 digits, i.e 1977)"),
                     QStringLiteral("Find Year"), QStringLiteral(" 2020 "));
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).cellText(1, 0), QStringLiteral("2020"));
    leave(wizard);
  });
  EXPECT_EQ(stored(1, "BirthYear"), Value(2020));
}

TEST_F(YearWizardTest, AnAnswerThatIsNoYearIsRefusedAndAnEmptyOneEndsSilently) {
  for (const char* answer : {"77", "abcd", "19777"}) {
    boxes_.expectInput(QStringLiteral("Please enter Year Of Birth for Anna (4 digits, i.e 1977)"),
                       QStringLiteral("Find Year"), QString::fromLatin1(answer));
    boxes_.expectMessage(QStringLiteral("Invalid entry, please try again"),
                         QStringLiteral("Find Year"), MsgIcon::Exclamation);
    caller().commands.findYear();
  }
  boxes_.expectInput(QStringLiteral("Please enter Year Of Birth for Anna (4 digits, i.e 1977)"),
                     QStringLiteral("Find Year"), QStringLiteral("  "));
  caller().commands.findYear();
  EXPECT_EQ(stored(1, "BirthYear"), Value());
  EXPECT_EQ(Forms::loaded<YearWizard>(), nullptr);
}

TEST_F(YearWizardTest, ANameWithoutARowIsTold) {
  caller().controls.setNamesInPhoto({{"Ghost", 99}});
  caller().names->setCurrentRow(0);
  EXPECT_THROW(caller().commands.findYear(), RunTimeError);
  EXPECT_EQ(Forms::loaded<YearWizard>(), nullptr);
}

// The table

TEST_F(YearWizardTest, EachYearHasItsAgeAndItsMarks) {
  born(2022);
  photoOf(2024);
  folder_.addRow(
      "PhotoAlbum",
      {{"PictureID", "HD30000"}, {"Year", 2023}, {"PlaceID", 1}, {"NamesInPhoto", "001,"}});
  findYear([](YearWizard& wizard) {
    const FlexGrid& years = grid(wizard);
    EXPECT_EQ(years.rows(), 6);
    EXPECT_EQ(years.cols(), 4);
    const char* const header[] = {"Year", "Anna", "Lake", "Picnic"};
    const char* const second[] = {"2023", "Age 1", "X", ""};
    const char* const third[] = {"2024", "Age 2", "X", "X"};
    for (int col = 0; col < 4; ++col) {
      EXPECT_EQ(toUtf8(years.cellText(0, col)), header[col]);
      EXPECT_EQ(toUtf8(years.cellText(2, col)), second[col]);
      EXPECT_EQ(toUtf8(years.cellText(3, col)), third[col]);
    }
    EXPECT_EQ(years.row(), 3);
    EXPECT_EQ(years.col(), 0);
    leave(wizard);
  });
  EXPECT_EQ(vars().WizardPlaceID, Value(1));
}

TEST_F(YearWizardTest, RowsAndHeaderAreFormatted) {
  born(2022);
  findYear([](YearWizard& wizard) {
    const FlexGrid& years = grid(wizard);
    EXPECT_EQ(years.item(0, 0)->background().color(), QColor(180, 200, 220));
    EXPECT_TRUE(years.item(0, 0)->font().bold());
    EXPECT_FALSE(years.item(0, 1)->font().bold());
    for (const int col : {2, 3}) {
      EXPECT_TRUE(years.item(0, col)->font().bold());
      EXPECT_DOUBLE_EQ(years.item(0, col)->font().pointSizeF(), 16);
    }
    EXPECT_EQ(years.rowTwips(1), 350);
    EXPECT_EQ(years.rowTwips(0), 300);
    for (int col = 1; col < 4; ++col)
      EXPECT_TRUE(years.horizontalHeaderItem(col)->font().bold());
    leave(wizard);
  });
}

TEST_F(YearWizardTest, APersonBornThisYearHasOneRow) {
  born(2026);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).rows(), 2);
    EXPECT_EQ(grid(wizard).cellText(1, 1), QStringLiteral("Age 0"));
    leave(wizard);
  });
}

TEST_F(YearWizardTest, APersonWhoIsNotYetBornHasOnlyTheHeader) {
  born(3000);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).rows(), 1);
    leave(wizard);
  });
}

TEST_F(YearWizardTest, BirthYearsFarBackHaveAllTheirRows) {
  for (const int year : {0, -5}) {
    born(year);
    findYear([year](YearWizard& wizard) {
      EXPECT_EQ(grid(wizard).rows(), 2026 - year + 2);
      EXPECT_EQ(grid(wizard).cellText(1, 0), QString::number(year));
      leave(wizard);
    });
  }
}

TEST_F(YearWizardTest, ABirthYearThatIsNoNumberIsTold) {
  born("abcd");
  EXPECT_THROW(caller().commands.findYear(), RunTimeError);
}

TEST_F(YearWizardTest, WithoutAHitTheGridStandsAtItsTop) {
  born(1950);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).row(), 0);
    EXPECT_EQ(grid(wizard).topRow(), 1);
    leave(wizard);
  });
}

TEST_F(YearWizardTest, AFirstHitAtRow14ScrollsItToTheMiddle) {
  born(1950);
  photoOf(1963);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).row(), 14);
    EXPECT_EQ(grid(wizard).topRow(), 7);
    leave(wizard);
  });
}

TEST_F(YearWizardTest, AFirstHitAtRow13DoesNotScroll) {
  born(1950);
  photoOf(1962);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).row(), 13);
    EXPECT_EQ(grid(wizard).topRow(), 1);
    leave(wizard);
  });
}

TEST_F(YearWizardTest, ThePhotosOfTheEditorAreNotDisturbed) {
  born(2020);
  photoOf(2021);
  data().rsPhotoAlbum.Requery();
  data().rsPhotoAlbum.MoveLast();
  findYear([](YearWizard& wizard) { leave(wizard); });
  EXPECT_EQ(data().rsPhotoAlbum.AbsolutePosition(), 2);
  EXPECT_TRUE(data().rsPhotoAlbum.Filter().empty());
}

TEST_F(YearWizardTest, ItSaysWhatItIsFor) {
  born(2020);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(wizard.caption(), QStringLiteral("Year Wizard"));
    EXPECT_EQ(toUtf8(control<QLabel>(wizard, "Label1")->text()),
              "Use this table to determine the Year the current photo was taken. This table shows "
              "you what is the year with the selected name's age. It also shows in which years "
              "you have photos with the same Place Event and selected Name.");
    EXPECT_EQ(toUtf8(control<QLabel>(wizard, "Label2")->text()),
              "Click the Year that matches the year the current photo was taken.");
    leave(wizard);
  });
}

// Choosing a year

TEST_F(YearWizardTest, AClickOnAYearReturnsIt) {
  born(2020);
  findYear([](const YearWizard& wizard) { click(wizard, 3, 0); });
  EXPECT_EQ(caller().year->text(), QStringLiteral("2022"));
}

TEST_F(YearWizardTest, AClickElsewhereDoesNothing) {
  born(2020);
  findYear([](YearWizard& wizard) {
    for (int col = 1; col < 4; ++col)
      click(wizard, 3, col);
    QTest::mouseClick(grid(wizard).horizontalHeader()->viewport(), Qt::LeftButton, {},
                      QPoint(5, 5));
    EXPECT_EQ(Forms::loaded<YearWizard>(), &wizard);
    click(wizard, 3, 0);
  });
  EXPECT_EQ(caller().year->text(), QStringLiteral("2022"));
}

TEST_F(YearWizardTest, WithoutAChosenRowTheHeaderIsNoYearEither) {
  born(2020);
  findYear([](YearWizard& wizard) {
    EXPECT_EQ(grid(wizard).row(), 0);
    QTest::mouseClick(grid(wizard).horizontalHeader()->viewport(), Qt::LeftButton, {},
                      QPoint(5, 5));
    EXPECT_EQ(Forms::loaded<YearWizard>(), &wizard);
    leave(wizard);
  });
  EXPECT_TRUE(caller().year->text().isEmpty());
}

TEST_F(YearWizardTest, TheKeyboardChoosesAYearToo) {
  born(2020);
  photoOf(2022);
  findYear([](const YearWizard& wizard) {
    QTest::keyClick(&grid(wizard), Qt::Key_Down);
    QTest::keyClick(&grid(wizard), Qt::Key_Return);
  });
  EXPECT_EQ(caller().year->text(), QStringLiteral("2023"));
}

TEST_F(YearWizardTest, LeavingWithoutAYearChangesNothing) {
  born(2020);
  caller().year->setText(QStringLiteral("1999"));
  findYear([](YearWizard& wizard) { leave(wizard); });
  EXPECT_EQ(caller().year->text(), QStringLiteral("1999"));
}

TEST_F(YearWizardTest, TheChosenRowLightsUpUnderTheMouse) {
  born(2020);
  photoOf(2022);
  findYear([](YearWizard& wizard) {
    FlexGrid& years = grid(wizard);
    EXPECT_EQ(years.selectionColour(), QColor(128, 0, 0));
    hover(*years.viewport(), cellAt(years, 3, 1));
    EXPECT_EQ(years.selectionColour(), QColor(255, 200, 22));
    EXPECT_EQ(years.focusRect(), FlexGrid::FocusRect::Heavy);
    hover(*years.viewport(), cellAt(years, 4, 1));
    EXPECT_EQ(years.selectionColour(), QColor(128, 0, 0));
    EXPECT_EQ(years.focusRect(), FlexGrid::FocusRect::None);
    leave(wizard);
  });
}

} // namespace hearthbook::test
