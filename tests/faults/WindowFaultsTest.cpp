#include "PickaPicFixture.h"

#include "FileBytes.h"
#include "PrivateMount.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <optional>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

/// Asked before anything has a thread: threads that are there already would not see the mounts.
const bool canMount = test::canMountPrivately();

/// The forms of building on an album whose disk fails them.
class WindowFaults : public test::PickaPicFixture {
protected:
  void SetUp() override {
    if (!canMount)
      GTEST_SKIP() << "this machine lets tests mount nothing";
  }

  /// Works on the closed album, then opens it again as a next start does.
  void reopened(const std::function<void()>& work) {
    vars().rsHelp.reset();
    folder_.close();
    work();
    folder_.open();
    vars().rsHelp = std::make_unique<Recordset>(album().helpConnection);
    vars().rsHelp->Open("SELECT * FROM Help");
  }

  void storeDescriptionOf(const DBeditor& editor, const char* text) {
    auto* description = control<QPlainTextEdit>(editor, "Description");
    description->setFocus();
    QTest::keyClicks(description, toQString(text));
    press(editor, "NextPhoto");
  }
  static std::string descriptionOn(const DBeditor& editor) {
    return toUtf8(control<QPlainTextEdit>(editor, "Description")->toPlainText());
  }
  [[nodiscard]] QString trouble(const char* cause) const {
    return toQString("Cannot use \"" + at("Data/Photo_Album.mdb").string() + "\": " + cause + ".");
  }
  void expectStoringFails(const char* cause) {
    boxes_.expectMessage(toQString("This could not be done:\n\n") + trouble(cause), {},
                         MsgIcon::Critical);
  }
  void expectToBeAskedAtClosing(const char* cause, MsgAnswer answer) {
    boxes_.expectQuestion(toQString("The last change could not be stored: ") + trouble(cause) +
                              toQString("\nClose without it?"),
                          {}, MsgIcon::Exclamation, MsgButtons::YesNo, answer);
  }
  /// Adds the chosen files; how often it was told that a step of the file failed.
  int failuresOfAdding(const PickaPic& picker, const fs::path& source) {
    struct Listening : BoxPlayer {
      MsgAnswer message(const QString& text, const QString&, MsgIcon, MsgButtons) override {
        texts.push_back(toUtf8(text));
        return MsgAnswer::Ok;
      }
      QString input(const QString&, const QString&, const QString&) override { return {}; }
      std::vector<std::string> texts;
    } listening;
    BoxPlayer* former = BoxPlayer::install(&listening);
    insert(picker);
    BoxPlayer::install(former);
    EXPECT_EQ(listening.texts.back(), "1 Files added to album.");
    listening.texts.pop_back();
    EXPECT_THAT(listening.texts,
                testing::Each("An error occurred while inserting file: " + source.string()));
    return static_cast<int>(listening.texts.size());
  }
};

class FullDiskWindow : public WindowFaults {
protected:
  void SetUp() override {
    WindowFaults::SetUp();
    if (IsSkipped())
      return;
    addPhotosUpTo(3);
    lake_ = add("lake.jpg");
    bytes_ = test::readBytes(lake_);
    reopened([&] {
      const fs::path aside = at("../aside");
      fs::copy(at(""), aside, fs::copy_options::recursive);
      disk_.emplace(at(""), std::size_t{8} << 20);
      fs::copy(aside, at(""), fs::copy_options::recursive);
    });
  }
  void TearDown() override {
    Forms::reset();
    if (disk_)
      folder_.close();
  }

  fs::path lake_; ///< a photo beside the album, and its bytes
  std::string bytes_;
  std::optional<test::SmallDisk> disk_;
};

class ReadOnlyWindow : public WindowFaults {
protected:
  void SetUp() override {
    WindowFaults::SetUp();
    if (IsSkipped())
      return;
    addPhotosUpTo(3);
    lake_ = add("lake.jpg");
    bytes_ = test::readBytes(lake_);
    reopened([&] { mount_.emplace(at("")); });
  }

  fs::path lake_; ///< a photo beside the album, and its bytes
  std::string bytes_;
  std::optional<test::ReadOnlyMount> mount_;
};

} // namespace

TEST_F(FullDiskWindow, ADescriptionThatCannotBeStoredIsToldAndStaysInItsField) {
  const auto& editor = openEditor();
  disk_->fillUpTo(0);
  expectStoringFails("the disk is full");
  storeDescriptionOf(editor, "At the lake");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 3");
  EXPECT_EQ(descriptionOn(editor), "At the lake");

  disk_->makeRoom();
  press(editor, "NextPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 3");
  EXPECT_EQ(stored("HD00001", "Description"), Value("At the lake"));
}

TEST_F(FullDiskWindow, TheEditorThatCannotStoreStaysOpenUntilThereIsRoom) {
  const auto& editor = openEditor();
  auto* description = control<QPlainTextEdit>(editor, "Description");
  QTest::keyClicks(description, toQString("At the lake"));
  disk_->fillUpTo(0);
  expectToBeAskedAtClosing("the disk is full", MsgAnswer::No);
  press(editor, "Command4");
  ASSERT_NE(Forms::loaded<DBeditor>(), nullptr);
  EXPECT_EQ(descriptionOn(editor), "At the lake");

  disk_->makeRoom();
  press(editor, "Command4");
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
  EXPECT_EQ(stored("HD00001", "Description"), Value("At the lake"));
}

TEST_F(FullDiskWindow, TheEditorCanBeClosedWithoutTheChange) {
  const auto& editor = openEditor();
  QTest::keyClicks(control<QPlainTextEdit>(editor, "Description"), toQString("At the lake"));
  disk_->fillUpTo(0);
  expectToBeAskedAtClosing("the disk is full", MsgAnswer::Yes);
  press(editor, "Command4");
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
  EXPECT_TRUE(stored("HD00001", "Description").isNull());
}

TEST_F(FullDiskWindow, AFileThatCannotBeMovedInIsToldAndStaysWhereItWas) {
  auto& picker = openPickerAtSource();
  control<QAbstractButton>(picker, "Option2")->click();
  click(picker, 0);
  disk_->fillUpTo(0);
  EXPECT_GT(failuresOfAdding(picker, lake_), 0);
  EXPECT_EQ(test::readBytes(lake_), bytes_);
  EXPECT_EQ(photos().RecordCount(), 3);

  disk_->makeRoom();
  click(picker, 0);
  EXPECT_EQ(failuresOfAdding(picker, lake_), 0);
  EXPECT_EQ(photos().RecordCount(), 4);
  EXPECT_EQ(test::readBytes(at("Photos/00004.jpg")), bytes_);
}

TEST_F(ReadOnlyWindow, TheAlbumIsShownAndAChangeIsToldAndCanBeGivenUp) {
  const auto& editor = openEditor();
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 3");
  EXPECT_TRUE(control<PictureBox>(editor, "Image1")->hasPicture());
  expectStoringFails("it can only be read");
  storeDescriptionOf(editor, "At the lake");
  EXPECT_EQ(labelOf(editor, "NumRec"), "1 of 3");
  EXPECT_EQ(descriptionOn(editor), "At the lake");

  auto* description = control<QPlainTextEdit>(editor, "Description");
  description->setFocus();
  QTest::keyClick(description, Qt::Key_Escape);
  press(editor, "NextPhoto");
  EXPECT_EQ(labelOf(editor, "NumRec"), "2 of 3");
}

TEST_F(ReadOnlyWindow, TheEditorCanBeClosedWithoutTheChange) {
  const auto& editor = openEditor();
  QTest::keyClicks(control<QPlainTextEdit>(editor, "Description"), toQString("At the lake"));
  expectToBeAskedAtClosing("it can only be read", MsgAnswer::Yes);
  press(editor, "Command4");
  EXPECT_EQ(Forms::loaded<DBeditor>(), nullptr);
}

TEST_F(ReadOnlyWindow, AFileThatCannotBeMovedInIsToldAndStaysWhereItWas) {
  auto& picker = openPickerAtSource();
  control<QAbstractButton>(picker, "Option2")->click();
  click(picker, 0);
  EXPECT_GT(failuresOfAdding(picker, lake_), 0);
  EXPECT_EQ(test::readBytes(lake_), bytes_);
  EXPECT_EQ(photos().RecordCount(), 3);
}

} // namespace hearthbook
