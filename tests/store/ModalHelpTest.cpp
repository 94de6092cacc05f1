#include "ModalHelp.h"

#include "AlbumFixture.h"
#include "BoxScript.h"
#include "Guard.h"
#include "HelpEntry.h"
#include "Text.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace hearthbook::test {
namespace {

/// A dialog with a pane, a control that is explained and one that is not.
class ModalHelpTest : public AlbumFixture {
protected:
  ModalHelpTest() {
    auto* column = new QVBoxLayout(&dialog);
    for (QWidget* part : std::initializer_list<QWidget*>{drive, plain, frame, text})
      column->addWidget(part);
    drive->setProperty("helpKey", QStringLiteral("Add From File*Drive"));
    help = new ModalHelp(&dialog, HelpPane(*frame, *text), vars());
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    QTest::mouseMove(plain); // a pointer that is there already would not be seen to move
  }

  std::string caption() { return toUtf8(frame->title()); }
  std::string shown() { return toUtf8(text->toPlainText()); }
  std::string rowOf(const char* key) { return findHelp(*vars().rsHelp, key).text; }

  QWidget dialog;
  QPushButton* drive = new QPushButton;
  QPushButton* plain = new QPushButton;
  QGroupBox* frame = new QGroupBox;
  QPlainTextEdit* text = new QPlainTextEdit;
  ModalHelp* help = nullptr;
  BoxScript boxes;
};

TEST_F(ModalHelpTest, TheControlUnderTheMouseIsExplained) {
  QTest::mouseMove(drive);

  EXPECT_EQ(caption(), "Drive");
  EXPECT_EQ(shown(), rowOf("Add From File*Drive"));
}

TEST_F(ModalHelpTest, AControlWithoutAKeyLeavesTheText) {
  QTest::mouseMove(drive);
  QTest::mouseMove(plain);

  EXPECT_EQ(caption(), "Drive");
}

TEST_F(ModalHelpTest, TheCaptionIsTheKeyBehindItsFirstStar) {
  album().helpConnection.execute(
      "INSERT INTO Help (helpID, HelpText) VALUES ('Screen*Two*Stars', 'Text.')");
  vars().rsHelp->Requery();

  help->show(QStringLiteral("Screen*Two*Stars"));

  EXPECT_EQ(caption(), "Two*Stars");
}

TEST_F(ModalHelpTest, WhileTheMouseStaysOverAControlNothingIsLookedUp) {
  help->show(QStringLiteral("Add From File*Drive"));
  text->setPlainText(QStringLiteral("untouched"));
  vars().rsHelp->MoveFirst();

  help->show(QStringLiteral("Add From File*Drive"));

  EXPECT_EQ(shown(), "untouched");
  EXPECT_EQ(vars().rsHelp->AbsolutePosition(), 1);
}

TEST_F(ModalHelpTest, AKeyWithoutARowFailsAndLeavesTheText) {
  help->show(QStringLiteral("Add From File*Drive"));

  EXPECT_ANY_THROW(help->show(QStringLiteral("Add From File*Nothing")));
  EXPECT_TRUE(vars().rsHelp->atEOF());
  EXPECT_EQ(caption(), "Drive");

  help->show(QStringLiteral("Add From File*Copy Files"));
  EXPECT_EQ(shown(), rowOf("Add From File*Copy Files"));
}

} // namespace
} // namespace hearthbook::test
