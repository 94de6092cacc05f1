#include "BoxScript.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace hearthbook::test {

namespace {

std::string words(const QString& text, const QString& title) {
  return "\"" + text.toStdString() + "\", title \"" + title.toStdString() + "\"";
}

MsgAnswer escapeAnswer(MsgButtons buttons) {
  switch (buttons) {
  case MsgButtons::OkCancel:
    return MsgAnswer::Cancel;
  case MsgButtons::YesNo:
    return MsgAnswer::No;
  case MsgButtons::Ok:
    break;
  }
  return MsgAnswer::Ok;
}

} // namespace

BoxScript::BoxScript() : former_(BoxPlayer::install(this)) {}

BoxScript::~BoxScript() {
  BoxPlayer::install(former_);
  for (const Box& box : expected_)
    ADD_FAILURE() << "this box never came: " << words(box.text, box.title);
}

void BoxScript::expectMessage(const QString& text, const QString& title, MsgIcon icon) {
  expect({.text = text, .title = title, .icon = icon});
}

void BoxScript::expectQuestion(const QString& text, const QString& title, MsgIcon icon,
                               MsgButtons buttons, MsgAnswer answer) {
  expect({.text = text, .title = title, .icon = icon, .buttons = buttons, .answer = answer});
}

void BoxScript::expectFailure(const QString& part) {
  expect({.isPart = true, .text = part, .icon = MsgIcon::Critical});
}

void BoxScript::expectInput(const QString& prompt, const QString& title, const QString& answer) {
  expect({.isInput = true, .text = prompt, .title = title, .typed = answer});
}

void BoxScript::expectInputOf(const QString& initial, const QString& prompt, const QString& title,
                              const QString& answer) {
  expect({.isInput = true, .text = prompt, .title = title, .typed = answer, .initial = initial});
}

void BoxScript::expect(Box box) {
  if (box.title.isEmpty())
    box.title = QStringLiteral("Hearthbook");
  expected_.push_back(std::move(box));
}

MsgAnswer BoxScript::message(const QString& text, const QString& title, MsgIcon icon,
                             MsgButtons buttons) {
  return next({.text = text, .title = title, .icon = icon, .buttons = buttons}).answer;
}

QString BoxScript::input(const QString& prompt, const QString& title, const QString& initial) {
  return next({.isInput = true, .text = prompt, .title = title, .initial = initial}).typed;
}

BoxScript::Box BoxScript::next(const Box& shown) {
  if (expected_.empty()) {
    ADD_FAILURE() << "unexpected box: " << words(shown.text, shown.title);
    return {.answer = escapeAnswer(shown.buttons)};
  }
  Box box = std::move(expected_.front());
  expected_.pop_front();
  const bool sameText = box.isPart ? shown.text.contains(box.text) : shown.text == box.text;
  EXPECT_TRUE(sameText && shown.title == box.title && shown.isInput == box.isInput)
      << "shown: " << words(shown.text, shown.title)
      << "\nexpected: " << words(box.text, box.title);
  EXPECT_TRUE(!box.initial || box.initial == shown.initial) << words(shown.text, shown.title);
  EXPECT_EQ(shown.icon, box.icon) << words(shown.text, shown.title);
  EXPECT_EQ(shown.buttons, box.buttons) << words(shown.text, shown.title);
  return box;
}

} // namespace hearthbook::test
