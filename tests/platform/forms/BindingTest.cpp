#include "AlbumFile.h"
#include "BoundControls.h"
#include "BoxScript.h"
#include "Command.h"
#include "Forms.h"
#include "QtPrint.h"
#include "RunTimeError.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <memory>

namespace hearthbook::test {

namespace {

/// Year, description and place of one photo, as the record editor has them.
class PhotoForm : public Form {
public:
  PhotoForm(Recordset& photos, Recordset& places)
      : Form(QStringLiteral("Photo"), Kind::Dialog), binding(photos) {
    place->setListSource({&places, "PlaceName", "PlaceID"});
    binding.bind(year, "Year");
    binding.bind(description, "Description");
    binding.bind(place, "PlaceID");
    binding.show();
  }

  QLineEdit* year = new QLineEdit(this);
  QPlainTextEdit* description = new QPlainTextEdit(this);
  DataCombo* place = new DataCombo(this);
  Binding binding;
};

class BindingTest : public AlbumFile {
protected:
  BindingTest() {
    photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID"); // CD00002, HD00001, HD00002...
    places.Open("SELECT * FROM Places ORDER BY PlaceID");
    photos.MoveFirst();
    photos.MoveNext(); // HD00001, 1995, Home, no description
    Forms::provide<PhotoForm>([this] { return new PhotoForm(photos, places); });
    form = &Forms::get<PhotoForm>();
  }
  ~BindingTest() override { Forms::reset(); }

  std::string storedOf(const std::string& id, const std::string& field) {
    return stored("SELECT " + field + " FROM PhotoAlbum WHERE PictureID = '" + id + "'");
  }

  /// What is asked at closing while the edit cannot be stored.
  QString closeWithoutIt() {
    try {
      photos.Update();
    } catch (const RunTimeError& failure) {
      return QStringLiteral("The last change could not be stored: ") +
             QString::fromUtf8(failure.what()) + QStringLiteral("\nClose without it?");
    }
    return {};
  }

  Recordset photos{connection};
  Recordset places{connection};
  PhotoForm* form = nullptr;
};

} // namespace

TEST_F(BindingTest, ShowsTheRowOnWhichTheSetStands) {
  EXPECT_EQ(form->year->text(), QStringLiteral("1995"));
  EXPECT_EQ(form->place->Text(), QStringLiteral("Home"));
  EXPECT_TRUE(form->description->toPlainText().isEmpty());
  photos.MoveNext();
  EXPECT_EQ(form->year->text(), QStringLiteral("1990"));
  EXPECT_EQ(form->description->toPlainText(), QStringLiteral("Bob's house"));
  EXPECT_EQ(form->place->Text(), QStringLiteral("Évian"));
}

TEST_F(BindingTest, EditsArePendingUntilTheSetMoves) {
  QTest::keyClicks(form->description, QStringLiteral("Spring"));
  EXPECT_TRUE(form->binding.isChanged(form->description));
  EXPECT_EQ(storedOf("HD00001", "Description"), "Null");
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Description"), "Spring");
  EXPECT_FALSE(form->binding.isChanged(form->description));
}

TEST_F(BindingTest, EveryWayOfLeavingTheRowWritesFirst) {
  const std::vector<std::function<void()>> ways = {
      [this] { photos.MoveFirst(); }, [this] { photos.MoveLast(); },
      [this] { photos.MoveNext(); },  [this] { photos.MovePrevious(); },
      [this] { photos.Move(2); },     [this] { photos.Find("Year = 2001"); },
      [this] { photos.Update(); },    [this] { photos.Filter("Year = 2001"); },
      [this] { photos.Requery(); },   [this] { photos.Close(); }};
  int text = 0;
  for (const auto& way : ways) {
    photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    photos.Filter("");
    photos.Move(1, Recordset::Start::First);
    const QString typed = QString::number(++text);
    form->description->setPlainText(typed);
    way();
    EXPECT_EQ(storedOf("HD00001", "Description"), typed.toStdString()) << "way " << text;
  }
}

TEST_F(BindingTest, OnlyWhatWasChangedIsWritten) {
  connection.execute("UPDATE PhotoAlbum SET Year = 2020 WHERE PictureID = 'HD00001'");
  QTest::keyClicks(form->description, QStringLiteral("Spring"));
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "2020");
}

TEST_F(BindingTest, AValueTypedBackToWhatItWasIsNoEdit) {
  form->year->setText(QStringLiteral("1996"));
  form->year->setText(QStringLiteral("1995"));
  form->binding.write();
  EXPECT_FALSE(photos.isPending());
}

TEST_F(BindingTest, AnEmptiedTextIsNull) {
  photos.MoveNext();
  form->description->clear();
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00002", "Description"), "Null");
}

TEST_F(BindingTest, ATypedYearIsStoredAsANumber) {
  form->year->setText(QStringLiteral("1987"));
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "typeof(Year)"), "integer");
  photos.MovePrevious();
  EXPECT_EQ(form->year->text(), QStringLiteral("1987"));
  EXPECT_TRUE(photos.Collect("Year").isInteger());
}

TEST_F(BindingTest, AFieldMarkedAsUnchangedKeepsItsStoredValue) {
  form->year->clear();
  form->binding.markUnchanged(form->year);
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "1995");
  photos.MovePrevious();
  EXPECT_EQ(form->year->text(), QStringLiteral("1995"));
}

TEST_F(BindingTest, TheStoredValueComesBackInAFieldMarkedAsUnchanged) {
  form->year->clear();
  form->binding.markUnchanged(form->year);
  form->binding.show();
  EXPECT_EQ(form->year->text(), QStringLiteral("1995"));
}

TEST_F(BindingTest, AChosenPlaceIsWrittenAndAnEmptiedOneIsNull) {
  form->place->setText(QStringLiteral("lake"));
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "PlaceID"), "1");
  QTest::keyClick(form->place, Qt::Key_Delete);
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00002", "PlaceID"), "Null");
}

TEST_F(BindingTest, AValueThatNoEntryHasIsNotLost) {
  connection.execute("UPDATE PhotoAlbum SET PlaceID = 99 WHERE PictureID = 'HD00001'");
  photos.Requery();
  photos.MoveNext();
  EXPECT_TRUE(form->place->Text().isEmpty());
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "PlaceID"), "99");
}

TEST_F(BindingTest, LinesTabsAndLettersOfAllAlphabetsAreKept) {
  const QString text = QStringLiteral("Grüße\n\tan שלום \U0001F382\n");
  form->description->setPlainText(text);
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Description"), text.toStdString());
  photos.MovePrevious();
  EXPECT_EQ(form->description->toPlainText(), text);
  EXPECT_FALSE(form->binding.isChanged(form->description));
}

TEST_F(BindingTest, WhatTheProgramSetInTheRowIsSeenAtShowAndWhatIsPendingStays) {
  QTest::keyClicks(form->description, QStringLiteral("half a sent"));
  photos.Collect("Year", 1970);
  form->binding.show();
  EXPECT_EQ(form->year->text(), QStringLiteral("1970"));
  EXPECT_EQ(form->description->toPlainText(), QStringLiteral("half a sent"));
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "1970");
  EXPECT_EQ(storedOf("HD00001", "Description"), "half a sent");
}

TEST_F(BindingTest, WriteLeavesTheEditPendingInTheRow) {
  form->year->setText(QStringLiteral("1987"));
  form->binding.write();
  EXPECT_TRUE(photos.isPending());
  EXPECT_EQ(photos.Collect("Year").toText(), "1987");
  photos.CancelUpdate();
  EXPECT_EQ(form->year->text(), QStringLiteral("1995"));
}

TEST_F(BindingTest, UnloadingTheFormStoresItsEdits) {
  QTest::keyClicks(form->description, QStringLiteral("Spring"));
  form->Unload();
  EXPECT_EQ(storedOf("HD00001", "Description"), "Spring");
}

TEST_F(BindingTest, ClosingTheConnectionStoresTheEdits) {
  QTest::keyClicks(form->description, QStringLiteral("Spring"));
  connection.Close();
  connection.Open(file);
  EXPECT_EQ(storedOf("HD00001", "Description"), "Spring");
}

TEST_F(BindingTest, WithoutARowTheControlsAreEmptyAndCannotBeUsed) {
  photos.MoveLast();
  photos.MoveNext();
  EXPECT_TRUE(form->year->text().isEmpty());
  EXPECT_FALSE(form->year->isEnabled());
  EXPECT_TRUE(form->place->Text().isEmpty());
  photos.MoveFirst();
  EXPECT_TRUE(form->year->isEnabled());
}

TEST_F(BindingTest, AnEditThatCannotBeStoredStaysAndTheSetDoesNotMove) {
  connection.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum WHEN new.Year = 1 BEGIN "
                     "SELECT RAISE(ABORT, 'no such year'); END");
  form->year->setText(QStringLiteral("1"));
  EXPECT_THROW(photos.MoveNext(), RunTimeError);
  EXPECT_EQ(photos.AbsolutePosition(), 2);
  EXPECT_EQ(form->year->text(), QStringLiteral("1"));
  form->year->setText(QStringLiteral("2"));
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "2");
}

TEST_F(BindingTest, AFormWhoseEditCannotBeStoredStaysOpen) {
  connection.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum BEGIN "
                     "SELECT RAISE(ABORT, 'the album is full'); END");
  form->Show();
  form->year->setText(QStringLiteral("1"));
  BoxScript script;
  script.expectQuestion(closeWithoutIt(), {}, MsgIcon::Exclamation, MsgButtons::YesNo,
                        MsgAnswer::No);
  EXPECT_FALSE(form->close());
  EXPECT_EQ(Forms::loaded<PhotoForm>(), form);
  EXPECT_EQ(form->year->text(), QStringLiteral("1"));
  connection.execute("DROP TRIGGER Refuse");
  EXPECT_TRUE(form->close());
  EXPECT_EQ(storedOf("HD00001", "Year"), "1");
}

TEST_F(BindingTest, AFormCanBeClosedWithoutTheEditThatCannotBeStored) {
  connection.execute("CREATE TRIGGER Refuse BEFORE UPDATE ON PhotoAlbum BEGIN "
                     "SELECT RAISE(ABORT, 'the album is full'); END");
  form->Show();
  form->year->setText(QStringLiteral("1"));
  BoxScript script;
  script.expectQuestion(closeWithoutIt(), {}, MsgIcon::Exclamation, MsgButtons::YesNo,
                        MsgAnswer::Yes);
  EXPECT_TRUE(form->close());
  EXPECT_EQ(Forms::loaded<PhotoForm>(), nullptr);
  EXPECT_FALSE(photos.isPending());
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "1995");
}

TEST_F(BindingTest, CancelGivesUpWhatIsInTheControlsAndInTheRow) {
  form->year->setText(QStringLiteral("1987"));
  form->binding.write();
  QTest::keyClicks(form->description, QStringLiteral("Spring"));
  form->binding.cancel();
  EXPECT_EQ(form->year->text(), QStringLiteral("1995"));
  EXPECT_TRUE(form->description->toPlainText().isEmpty());
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "1995");
  EXPECT_EQ(storedOf("HD00001", "Description"), "Null");
}

TEST_F(BindingTest, AFieldMarkedAsUnchangedLosesItsEditInTheRowAlone) {
  form->year->setText(QStringLiteral("1987"));
  form->description->setPlainText(QStringLiteral("Spring"));
  form->binding.write();
  form->binding.markUnchanged(form->year);
  form->binding.show();
  EXPECT_EQ(form->year->text(), QStringLiteral("1995"));
  photos.MoveNext();
  EXPECT_EQ(storedOf("HD00001", "Year"), "1995");
  EXPECT_EQ(storedOf("HD00001", "Description"), "Spring");
}

TEST_F(BindingTest, AfterTheBindingTheControlsAreFree) {
  form->Unload();
  Forms::reset();
  const auto position = photos.AbsolutePosition();
  photos.MoveNext();
  EXPECT_EQ(photos.AbsolutePosition(), position + 1);
}

} // namespace hearthbook::test
