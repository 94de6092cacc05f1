#include "EditorFixture.h"
#include "Numbers.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QMouseEvent>
#include <QPixmap>

namespace hearthbook::test {

namespace {

class EditorNames : public EditorFixture {
protected:
  EditorNames() {
    anna_ = folder_.addPerson("Anna");
    ben_ = folder_.addPerson("Ben");
    neighbour_ = folder_.addPerson("Neighbour", anna_);
  }

  void set(const std::string& assignment) {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET " + assignment);
    photos().Requery();
  }
  static DataList& people(const QWidget& editor) { return *control<DataList>(editor, "DataList1"); }
  static QListWidget& names(const QWidget& editor) {
    return *control<QListWidget>(editor, "List2");
  }
  static QComboBox& filter(const QWidget& editor) { return *control<QComboBox>(editor, "Combo1"); }
  static QCheckBox& marking(const QWidget& editor) {
    return *control<QCheckBox>(editor, "markName");
  }
  static PictureBox& image(const QWidget& editor) { return *control<PictureBox>(editor, "Image1"); }
  static bool isMarked(const QWidget& editor) {
    return !control<QLabel>(editor, "Shape1")->isHidden();
  }
  static TwipsRect marker(const QWidget& editor) { return rectOf(editor, "Shape1"); }

  static void choosePerson(const QWidget& editor, const char* name) {
    auto& list = people(editor);
    for (int row = 0; row < list.model()->rowCount(); ++row)
      if (const auto index = list.model()->index(row, 0); index.data() == toQString(name))
        return QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                                 list.visualRect(index).center());
    ADD_FAILURE() << "no person " << name;
  }
  static void chooseName(const QWidget& editor, int row) {
    auto& list = names(editor);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
  }
  static void filterBy(const QWidget& editor, const char* text) {
    const int index = filter(editor).findText(toQString(text));
    ASSERT_GE(index, 0) << text;
    filter(editor).setCurrentIndex(index);
    Q_EMIT filter(editor).activated(index);
  }
  static QStringList texts(std::initializer_list<const char*> wanted) {
    QStringList list;
    for (const char* text : wanted)
      list << toQString(text);
    return list;
  }
  static void clickMarking(const QWidget& editor) {
    QTest::mouseClick(&marking(editor), Qt::LeftButton, {},
                      QPoint(8, marking(editor).height() / 2));
  }
  /// A press at a place of the picture, told in parts of its width and height.
  static QPoint pressAt(const QWidget& editor, double x, double y) {
    const QPoint at(qRound(image(editor).width() * x), qRound(image(editor).height() * y));
    const QPointF inside(at); // QTest would take (0, 0) for the middle
    QMouseEvent press(QEvent::MouseButtonPress, inside, image(editor).mapToGlobal(inside),
                      Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&image(editor), &press);
    settle();
    return at;
  }

  std::int64_t anna_ = 0;
  std::int64_t ben_ = 0;
  std::int64_t neighbour_ = 0;
};

} // namespace

// ---- the filter

TEST_F(EditorNames, AFamilyMemberShowsThePeopleThatBelongToIt) {
  const auto& editor = openEditor();
  filterBy(editor, "Anna");
  EXPECT_EQ(textsOf(people(editor)), texts({"Neighbour"}));
  filterBy(editor, "Family Members");
  EXPECT_EQ(textsOf(people(editor)), texts({"Anna", "Ben"}));
  filterBy(editor, "Show All");
  EXPECT_EQ(textsOf(people(editor)), texts({"Anna", "Ben", "Neighbour"}));
}

TEST_F(EditorNames, TheLineOfTheFilterMeansTheFamily) {
  const auto& editor = openEditor();
  filterBy(editor, "Anna");
  filterBy(editor, "-------------------");
  EXPECT_EQ(filter(editor).currentText(), toQString("Family Members"));
  EXPECT_EQ(textsOf(people(editor)), texts({"Anna", "Ben"}));
}

TEST_F(EditorNames, TheFilterKeepsItsChoiceAndItsFamilyOnAPhotoWithoutNames) {
  folder_.addPhoto("HD00002");
  const auto& editor = openEditor();
  filterBy(editor, "Anna");
  press(editor, "NextPhoto");
  EXPECT_EQ(filter(editor).currentText(), toQString("Anna"));
  EXPECT_EQ(filter(editor).count(), 5);
  EXPECT_EQ(textsOf(people(editor)), texts({"Neighbour"}));
}

// ---- names in

TEST_F(EditorNames, BothCommandsBeginDisabledAndAChoiceEnablesThem) {
  set("NamesInPhoto = '002,'");
  const auto& editor = openEditor();
  EXPECT_FALSE(isEnabled(editor, "Command2"));
  EXPECT_FALSE(isEnabled(editor, "Command3"));
  choosePerson(editor, "Anna");
  EXPECT_TRUE(isEnabled(editor, "Command2"));
  chooseName(editor, 0);
  EXPECT_TRUE(isEnabled(editor, "Command3"));
}

TEST_F(EditorNames, ANamePutInIsStoredAtTheNextMove) {
  folder_.addPhoto("HD00002");
  const auto& editor = openEditor();
  choosePerson(editor, "Ben");
  press(editor, "Command2");
  choosePerson(editor, "Anna");
  press(editor, "Command2");
  EXPECT_EQ(textsOf(names(editor)), texts({"Ben", "Anna"}));
  EXPECT_EQ(photos().Collect("NamesInPhoto"), Value("002,001,"));
  EXPECT_TRUE(stored("HD00001", "NamesInPhoto").isNull());
  press(editor, "NextPhoto");
  EXPECT_EQ(stored("HD00001", "NamesInPhoto"), Value("002,001,"));
}

TEST_F(EditorNames, ADoubleClickPutsANameIn) {
  const auto& editor = openEditor();
  choosePerson(editor, "Ben");
  auto& list = people(editor);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                     list.visualRect(list.model()->index(1, 0)).center());
  EXPECT_EQ(textsOf(names(editor)), texts({"Ben"}));
  EXPECT_TRUE(stored("HD00001", "NamesInPhoto").isNull());
}

TEST_F(EditorNames, ANameThatIsInIsNotPutInAgain) {
  set("NamesInPhoto = '001,', NamesCords = '001-0100X0200,'");
  const auto& editor = openEditor();
  choosePerson(editor, "Anna");
  press(editor, "Command2");
  EXPECT_EQ(textsOf(names(editor)), texts({"*Anna"}));
  EXPECT_FALSE(photos().isPending());
}

TEST_F(EditorNames, FiftyNamesDoNotStopTheNext) {
  std::string field;
  for (int i = 0; i < 50; ++i)
    field += padded(folder_.addPerson("Guest " + std::to_string(i), anna_), 3) + ",";
  set("NamesInPhoto = '" + field + "'");
  const auto& editor = openEditor();
  ASSERT_EQ(names(editor).count(), 50);
  choosePerson(editor, "Ben");
  press(editor, "Command2");
  EXPECT_EQ(names(editor).count(), 51);
  EXPECT_EQ(photos().Collect("NamesInPhoto"), Value(field + "002,"));
}

TEST_F(EditorNames, WithFiftyNamesTheCommandGoesOnWithNobodyChosen) {
  std::string field;
  for (int i = 0; i < 50; ++i)
    field += padded(folder_.addPerson("Guest " + std::to_string(i), anna_), 3) + ",";
  set("NamesInPhoto = '" + field + "'");
  const auto& editor = openEditor();
  choosePerson(editor, "Ben");
  filterBy(editor, "Anna");
  ASSERT_TRUE(people(editor).BoundText().isNull());
  press(editor, "Command2");
  EXPECT_EQ(names(editor).count(), 51) << "the count widens the test and does nothing else";
  EXPECT_EQ(photos().Collect("NamesInPhoto"), Value(field + "000,"));
}

TEST_F(EditorNames, WithFewerNamesNobodyChosenIsNobodyPutIn) {
  const auto& editor = openEditor();
  choosePerson(editor, "Ben");
  filterBy(editor, "Anna");
  press(editor, "Command2");
  EXPECT_EQ(names(editor).count(), 0);
}

// ---- names out

TEST_F(EditorNames, ANameTakenOutTakesItsMarkerWithItAtOnce) {
  set("NamesInPhoto = '001,002,', NamesCords = '001-0100X0200,002-0300X0400,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  EXPECT_TRUE(isMarked(editor));
  press(editor, "Command3");
  EXPECT_EQ(textsOf(names(editor)), texts({"*Ben"}));
  EXPECT_EQ(stored("HD00001", "NamesInPhoto"), Value("002,"));
  EXPECT_EQ(stored("HD00001", "NamesCords"), Value("002-0300X0400,"));
  EXPECT_FALSE(isMarked(editor));
}

TEST_F(EditorNames, NothingIsTakenOutUnlessANameIsChosen) {
  set("NamesInPhoto = '001,002,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  press(editor, "Command3");
  press(editor, "Command3");
  EXPECT_EQ(textsOf(names(editor)), texts({"Ben"})) << "the next name is not chosen by itself";
}

TEST_F(EditorNames, ADoubleClickTakesANameOut) {
  set("NamesInPhoto = '001,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  auto& list = names(editor);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                     list.visualItemRect(list.item(0)).center());
  EXPECT_EQ(list.count(), 0);
  EXPECT_TRUE(stored("HD00001", "NamesInPhoto").isNull());
}

TEST_F(EditorNames, AnIdWithoutARowIsDroppedAtTheNextWrite) {
  set("NamesInPhoto = '001,077,'");
  const auto& editor = openEditor();
  EXPECT_EQ(textsOf(names(editor)), texts({"Anna"}));
  choosePerson(editor, "Ben");
  press(editor, "Command2");
  EXPECT_EQ(photos().Collect("NamesInPhoto"), Value("001,002,"));
}

// ---- the marker

TEST_F(EditorNames, AChosenNameShowsItsMarker) {
  set("NamesInPhoto = '001,002,', NamesCords = '002-0300X0400,'");
  const auto& editor = openEditor();
  const TwipsRect box = rectOf(editor, "Image1");
  chooseName(editor, 1);
  EXPECT_TRUE(isMarked(editor));
  EXPECT_EQ(marker(editor), (TwipsRect{box.left + 300 - 100, box.top + 400 - 288, 200, 288}));
  chooseName(editor, 0);
  EXPECT_FALSE(isMarked(editor)) << "Anna has none";
}

TEST_F(EditorNames, TheMarkerAndTheMarkingEndWithThePhoto) {
  folder_.addPhoto("HD00002");
  set("NamesInPhoto = '001,', NamesCords = '001-0300X0400,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  clickMarking(editor);
  ASSERT_TRUE(marking(editor).isChecked());
  press(editor, "NextPhoto");
  EXPECT_FALSE(isMarked(editor));
  EXPECT_FALSE(marking(editor).isChecked());
  EXPECT_NE(image(editor).cursor().shape(), Qt::BitmapCursor);
}

TEST_F(EditorNames, DamagedMarkersShowNothingAndHarmNothing) {
  for (const char* damaged : {"001", "001-", "001-03,", "abc,def,", ",,,", "001-0300X04", "X"}) {
    set(std::string("NamesInPhoto = '001,', NamesCords = '") + damaged + "'");
    const auto& editor = openEditor();
    Forms::get<DBeditor>().ComposeRecord();
    settle();
    chooseName(editor, 0);
    EXPECT_FALSE(isMarked(editor)) << damaged;
  }
}

TEST_F(EditorNames, MarkingNeedsAName) {
  set("NamesInPhoto = '001,'");
  const auto& editor = openEditor();
  boxes_.expectMessage(toQString("Please Select Name!"));
  clickMarking(editor);
  EXPECT_FALSE(marking(editor).isChecked());
  pressAt(editor, 0.5, 0.5);
  EXPECT_TRUE(stored("HD00001", "NamesCords").isNull());
}

TEST_F(EditorNames, WithoutMarkingAPressMarksNothing) {
  set("NamesInPhoto = '001,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  pressAt(editor, 0.5, 0.5);
  EXPECT_TRUE(stored("HD00001", "NamesCords").isNull());
}

TEST_F(EditorNames, ThePointerIsTheMarkerWhileNamesAreMarked) {
  QPixmap icon(64, 64);
  icon.fill(Qt::red);
  icon.save(toQString(at("Media/MarkerIcon.ico").string()), "PNG");
  set("NamesInPhoto = '001,'");
  auto& editor = openEditor();
  chooseName(editor, 0);
  clickMarking(editor);
  ASSERT_EQ(image(editor).cursor().shape(), Qt::BitmapCursor);
  const int width = image(editor).cursor().pixmap().width();
  EXPECT_NEAR(image(editor).cursor().hotSpot().x(), width / 2, 1);
  editor.resize(editor.size() * 2);
  EXPECT_NEAR(image(editor).cursor().pixmap().width(), 2 * width, 2);
  clickMarking(editor);
  EXPECT_EQ(image(editor).cursor().shape(), Qt::ArrowCursor);
}

TEST_F(EditorNames, APressMarksTheChosenNameAndStoresIt) {
  set("NamesInPhoto = '001,002,'");
  const auto& editor = openEditor();
  chooseName(editor, 1);
  clickMarking(editor);
  pressAt(editor, 0.5, 0.5);
  EXPECT_EQ(textsOf(names(editor)), texts({"Anna", "*Ben"}));
  EXPECT_EQ(names(editor).currentRow(), 1);
  EXPECT_TRUE(isMarked(editor));
  EXPECT_TRUE(marking(editor).isChecked()) << "marking stays on";
  EXPECT_EQ(stored("HD00001", "NamesCords"), photos().Collect("NamesCords"));
  EXPECT_TRUE(stored("HD00001", "NamesCords").toText().starts_with("002-"));
}

TEST_F(EditorNames, MarkingAgainMovesTheMarkAndKeepsOneStar) {
  set("NamesInPhoto = '001,', NamesCords = '001-5000X0100,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  clickMarking(editor);
  pressAt(editor, 0, 0);
  EXPECT_EQ(textsOf(names(editor)), texts({"*Anna"}));
  EXPECT_EQ(stored("HD00001", "NamesCords"), Value("001-0000X0000,"));
}

TEST_F(EditorNames, APressOnTheMarkerIsOneOnThePhoto) {
  set("NamesInPhoto = '001,', NamesCords = '001-2880X2160,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  clickMarking(editor);
  const auto* shape = control<QLabel>(editor, "Shape1");
  EXPECT_EQ(shape->parentWidget()->childAt(shape->geometry().center()), &image(editor));
}

TEST_F(EditorNames, MarkingGoesOnWithTheNextName) {
  set("NamesInPhoto = '001,002,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  clickMarking(editor);
  pressAt(editor, 0, 0);
  chooseName(editor, 1);
  pressAt(editor, 0, 0);
  EXPECT_EQ(stored("HD00001", "NamesCords"), Value("001-0000X0000,002-0000X0000,"));
}

TEST_F(EditorNames, WhenTheNameHasGoneAPressAsksForOne) {
  set("NamesInPhoto = '001,'");
  const auto& editor = openEditor();
  chooseName(editor, 0);
  clickMarking(editor);
  press(editor, "Command3");
  boxes_.expectMessage(toQString("Please Select Name!"));
  pressAt(editor, 0.5, 0.5);
  EXPECT_FALSE(marking(editor).isChecked());
  EXPECT_TRUE(stored("HD00001", "NamesCords").isNull());
}

TEST_F(EditorNames, ANameNotYetStoredIsStoredWithItsMark) {
  const auto& editor = openEditor();
  choosePerson(editor, "Ben");
  press(editor, "Command2");
  chooseName(editor, 0);
  clickMarking(editor);
  pressAt(editor, 0, 0);
  EXPECT_EQ(stored("HD00001", "NamesInPhoto"), Value("002,"));
  EXPECT_EQ(textsOf(names(editor)), texts({"*Ben"}));
}

TEST_F(EditorNames, NamesOfEveryKindCanBeMarked) {
  const char* odd[] = {"O'Brien", "Smith, \"Joe\"", "e\xCC\x81lodie", "סבתא רות",
                       "12345678901234567890"};
  for (const char* name : odd)
    folder_.addPerson(name);
  const auto& editor = openEditor();
  for (const char* name : odd) {
    filterBy(editor, "Family Members");
    choosePerson(editor, name);
    press(editor, "Command2");
    chooseName(editor, names(editor).count() - 1);
    if (!marking(editor).isChecked())
      clickMarking(editor);
    pressAt(editor, 0.25, 0.75);
    EXPECT_EQ(toUtf8(names(editor).currentItem()->text()), std::string("*") + name);
  }
  EXPECT_EQ(stored("HD00001", "NamesInPhoto"), Value("004,005,006,007,008,"));
}

/// The window's size in parts of the standard one.
class EditorMarksAtScale : public EditorNames, public testing::WithParamInterface<double> {};

TEST_P(EditorMarksAtScale, TheMarkerPointsAtThePressedSpot) {
  set("NamesInPhoto = '001,'");
  auto& editor = openEditor();
  editor.resize(QSizeF(790 * GetParam() + 37, 522 * GetParam()).toSize());
  settle();
  chooseName(editor, 0);
  clickMarking(editor);
  const double scale = Stage::scaleOf(&image(editor));
  for (const double part : {0.0, 0.31, 0.5, 0.99}) {
    const QPoint pressed = pressAt(editor, part, 1 - part);
    const auto* shape = control<QLabel>(editor, "Shape1");
    const QPointF tip(shape->x() + shape->width() / 2.0, shape->y() + shape->height());
    const QPointF distance = tip - QPointF(image(editor).pos() + pressed);
    EXPECT_LE(std::abs(distance.x()), 1.0) << part;
    EXPECT_LE(std::abs(distance.y()), 1.0) << part;
    const auto position = stored("HD00001", "NamesCords").toText();
    EXPECT_NEAR(std::stod(position.substr(4, 4)), pressed.x() * 15 / scale, 15) << position;
    EXPECT_NEAR(std::stod(position.substr(9, 4)), pressed.y() * 15 / scale, 15) << position;
    EXPECT_EQ(position.size(), 14U);
  }
}

TEST_P(EditorMarksAtScale, AMarkStaysOnItsFaceWhenTheWindowChanges) {
  set("NamesInPhoto = '001,', NamesCords = '001-2880X1440,'");
  auto& editor = openEditor();
  chooseName(editor, 0);
  editor.resize(QSizeF(790 * GetParam(), 522 * GetParam()).toSize());
  settle();
  const auto* shape = control<QLabel>(editor, "Shape1");
  const double scale = Stage::scaleOf(shape);
  EXPECT_NEAR(shape->x() + shape->width() / 2.0, image(editor).x() + 2880 / 15.0 * scale, 1.5);
  EXPECT_NEAR(shape->y() + shape->height(), image(editor).y() + 1440 / 15.0 * scale, 1.5);
}

INSTANTIATE_TEST_SUITE_P(Sizes, EditorMarksAtScale, testing::Values(0.6, 1.0, 1.23, 2.0, 3.7));

TEST_F(EditorNames, AMarkOfThePhotoThatComesIsPlacedOnIt) {
  folder_.addPhoto("HD00002", {{"NamesInPhoto", "001,"}, {"NamesCords", "001-0300X0400,"}});
  writeJpeg(at("Photos/00002.jpg"), 100, 400);
  const auto& editor = openEditor();
  photos().MoveLast();
  Forms::get<DBeditor>().ComposeRecord();
  names(editor).setCurrentRow(0); // before the picture's pixels are there
  settle();
  const TwipsRect box = rectOf(editor, "Image1");
  EXPECT_DOUBLE_EQ(box.width, 1440);
  EXPECT_EQ(marker(editor), (TwipsRect{box.left + 300 - 100, box.top + 400 - 288, 200, 288}));
}

TEST_F(EditorNames, NamesThatABatchHasAddedAreNotWrittenAwayWithTheNextOne) {
  set("NamesInPhoto = '001,'");
  const auto& editor = openEditor();
  ASSERT_EQ(textsOf(names(editor)), texts({"Anna"}));
  set("NamesInPhoto = '001,003,'");
  Forms::tellRowsChanged({RowsChanged::By::BatchEdited});
  EXPECT_EQ(textsOf(names(editor)), texts({"Anna", "Neighbour"}));
  choosePerson(editor, "Ben");
  press(editor, "Command2");
  EXPECT_EQ(photos().Collect("NamesInPhoto"), Value("001,003,002,"));
}

} // namespace hearthbook::test
