#include "BoxScript.h"
#include "MsgBox.h"
#include "PlainForms.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest-spi.h>

#include <algorithm>

namespace hearthbook::test {

namespace {

/// Does `act` with the real box that comes next.
template <class Act> void withBox(Act act) {
  QTimer::singleShot(0, qApp, [act] {
    QWidget* box = QApplication::activeModalWidget();
    ASSERT_NE(box, nullptr);
    act(*box);
  });
}

void press(QWidget& box, const QString& caption) {
  for (QPushButton* button : box.findChildren<QPushButton*>())
    if (button->text().remove(QLatin1Char('&')) == caption)
      return QTest::mouseClick(button, Qt::LeftButton);
  ADD_FAILURE() << "no button " << caption.toStdString();
}

} // namespace

TEST(MsgBox, ShowsTextTitleAndIconAndIsAnswered) {
  withBox([](QWidget& widget) {
    auto& box = dynamic_cast<QMessageBox&>(widget);
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Delete"));
    EXPECT_EQ(box.text(), QStringLiteral("Sure?"));
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    press(box, QStringLiteral("Yes"));
  });
  EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), QStringLiteral("Delete"), MsgIcon::Exclamation,
                   MsgButtons::YesNo),
            MsgAnswer::Yes);
}

TEST(MsgBox, WithoutATitleHasThatOfTheProgram) {
  withBox([](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Hearthbook"));
    press(box, QStringLiteral("OK"));
  });
  EXPECT_EQ(MsgBox(QStringLiteral("Hello")), MsgAnswer::Ok);
}

TEST(MsgBox, EscapeIsCancelOrNoOrTheOnlyAnswer) {
  const auto escape = [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); };
  const auto answer = [&](MsgButtons buttons) {
    withBox(escape);
    return MsgBox(QStringLiteral("?"), {}, MsgIcon::Question, buttons);
  };
  EXPECT_EQ(answer(MsgButtons::Ok), MsgAnswer::Ok);
  EXPECT_EQ(answer(MsgButtons::OkCancel), MsgAnswer::Cancel);
  EXPECT_EQ(answer(MsgButtons::YesNo), MsgAnswer::No);
}

TEST(MsgBox, ReturnIsTheFirstButton) {
  withBox([](QWidget& box) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(MsgBox(QStringLiteral("?"), {}, MsgIcon::Question, MsgButtons::YesNo), MsgAnswer::Yes);
}

TEST(MsgBox, ReturnAnswersAWarningWithNoOrCancel) {
  const auto answer = [](MsgButtons buttons) {
    withBox([](QWidget& box) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
      QTest::keyClick(&box, Qt::Key_Return);
    });
    return MsgBox(QStringLiteral("Delete it?"), {}, MsgIcon::Exclamation, buttons);
  };
  EXPECT_EQ(answer(MsgButtons::YesNo), MsgAnswer::No);
  EXPECT_EQ(answer(MsgButtons::OkCancel), MsgAnswer::Cancel);
}

TEST(MsgBox, MarkupInATextIsShownAsItStands) {
  withBox([](QWidget& box) {
    EXPECT_EQ(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::AlertMessage);
    press(box, QStringLiteral("OK"));
  });
  MsgBox(QStringLiteral("<b>/home/ann & bob</b>"));
}

TEST(MsgBox, ManyLinesScrollBetweenWhatIsToldAndWhatIsAsked) {
  QString names;
  for (int i = 1; i <= 500; ++i)
    names += QStringLiteral("%1.jpg is missing\n").arg(i, 5, 10, QLatin1Char('0'));
  names.chop(1);
  withBox([names](QWidget& widget) {
    auto& box = dynamic_cast<QMessageBox&>(widget);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    EXPECT_EQ(box.text(), QStringLiteral("These are lost:"));
    auto* lines = box.findChild<QPlainTextEdit*>();
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(lines->toPlainText(), names);
    EXPECT_TRUE(lines->isReadOnly());
    EXPECT_EQ(lines->accessibleName(), box.text());
    EXPECT_LE(box.height(), 600);
    EXPECT_GT(lines->height(), box.height() / 3);
    const auto labels = box.findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
      return label->text() == QStringLiteral("Go on?") &&
             label->mapTo(&box, QPoint()).y() > lines->mapTo(&box, QPoint()).y();
    }));
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(MsgBox(QStringLiteral("These are lost:\n") + names + QStringLiteral("\n\nGo on?"), {},
                   MsgIcon::Question, MsgButtons::YesNo),
            MsgAnswer::Yes);
}

TEST(MsgBox, ManyLinesOfAMessageAloneScrollToo) {
  withBox([](QWidget& widget) {
    auto* lines = widget.findChild<QPlainTextEdit*>();
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(lines->toPlainText().count(QLatin1Char('\n')), 49);
    QTest::keyClick(&widget, Qt::Key_Escape);
  });
  EXPECT_EQ(MsgBox(QStringLiteral("first") + QStringLiteral("\nline").repeated(50)), MsgAnswer::Ok);
}

TEST(InputBox, GivesWhatWasTyped) {
  withBox([](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Go To Record"));
    EXPECT_EQ(box.findChild<QLabel*>()->text(), QStringLiteral("Enter Record Number:"));
    auto* edit = box.findChild<QLineEdit*>();
    EXPECT_EQ(edit->accessibleName(), QStringLiteral("Enter Record Number:"));
    EXPECT_EQ(edit->selectedText(), QStringLiteral("3")) << "typing replaces what was offered";
    QTest::keyClicks(edit, QStringLiteral("17"));
    QTest::keyClick(edit, Qt::Key_Return);
  });
  EXPECT_EQ(InputBox(QStringLiteral("Enter Record Number:"), QStringLiteral("Go To Record"),
                     QStringLiteral("3")),
            QStringLiteral("17"));
}

TEST(InputBox, ALongPromptIsBrokenIntoLines) {
  withBox([](QWidget& box) {
    EXPECT_LE(box.width(), 1000);
    const auto* prompt = box.findChild<QLabel*>();
    EXPECT_GE(prompt->height(), prompt->heightForWidth(prompt->width()));
    press(box, QStringLiteral("OK"));
  });
  InputBox(QStringLiteral("one two three ").repeated(40), {});
}

TEST(InputBox, IsEmptyAfterCancelAndEscape) {
  withBox([](QWidget& box) { press(box, QStringLiteral("Cancel")); });
  EXPECT_TRUE(InputBox(QStringLiteral("?"), {}, QStringLiteral("old")).isEmpty());
  withBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_TRUE(InputBox(QStringLiteral("?"), {}, QStringLiteral("old")).isEmpty());
}

TEST_F(PlainForms, ABoxStandsOverTheModalForm) {
  AskForm& ask = Forms::get<AskForm>();
  QTimer::singleShot(0, qApp, [&] {
    withBox([&](QWidget& box) {
      EXPECT_EQ(box.parentWidget(), &ask);
      press(box, QStringLiteral("OK"));
    });
    MsgBox(QStringLiteral("Over it"));
    ask.Hide();
  });
  ask.ShowModal();
}

TEST(BoxScript, AnswersInTheOrderOfTheScript) {
  BoxScript script;
  script.expectQuestion(QStringLiteral("Sure?"), {}, MsgIcon::Question, MsgButtons::YesNo,
                        MsgAnswer::No);
  script.expectInput(QStringLiteral("Number:"), QStringLiteral("Go To"), QStringLiteral("4"));
  EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), {}, MsgIcon::Question, MsgButtons::YesNo),
            MsgAnswer::No);
  EXPECT_EQ(InputBox(QStringLiteral("Number:"), QStringLiteral("Go To")), QStringLiteral("4"));
  EXPECT_TRUE(script.isDone());
}

TEST(BoxScript, FailsTheTestOnAnUnexpectedBox) {
  EXPECT_NONFATAL_FAILURE(
      {
        BoxScript script;
        MsgBox(QStringLiteral("Surprise"));
      },
      "unexpected box");
}

TEST(BoxScript, FailsTheTestOnABoxThatNeverCame) {
  EXPECT_NONFATAL_FAILURE(
      {
        BoxScript script;
        script.expectMessage(QStringLiteral("Hello"));
      },
      "never came");
}

TEST(BoxScript, FailsTheTestOnAnotherText) {
  EXPECT_NONFATAL_FAILURE(
      {
        BoxScript script;
        script.expectMessage(QStringLiteral("Hello"));
        MsgBox(QStringLiteral("Hallo"));
      },
      "Hallo");
}

} // namespace hearthbook::test
