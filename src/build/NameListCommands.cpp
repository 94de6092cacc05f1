#include "NameListCommands.h"

#include "BoundControls.h"
#include "MsgBox.h"
#include "NameList.h"
#include "Numbers.h"
#include "Text.h"
#include "Words.h"

namespace hearthbook {

namespace {

constexpr const char* tooLong = "Please Enter No More Then 20 Character";

/// A name that fits; empty where the user gave up or the name is there.
std::string askListName(const NameListWords& words, const Recordset& list) {
  QString answer;
  for (;;) {
    answer = InputBox(toQString(words.prompt), toQString(words.promptTitle), answer);
    std::string name = trimmed(toUtf8(answer));
    switch (judgeNewName(list, words, name)) {
    case NewName::AlreadyThere:
      MsgBox(toQString(words.alreadyThere), toQString(words.messageTitle));
      return {};
    case NewName::TooLong:
      MsgBox(toQString(tooLong), toQString(words.messageTitle));
      answer = toQString(name);
      break;
    case NewName::Empty:
    case NewName::Fits:
      return name;
    }
  }
}

bool confirmsDeletion(const NameListWords& words) {
  const std::string question = std::string(words.deleteQuestion) + "\n" + words.deleteNote;
  return MsgBox(toQString(question), toQString(words.deleteTitle), MsgIcon::None,
                MsgButtons::OkCancel) == MsgAnswer::Ok;
}

} // namespace

void addToNameList(const NameListWords& words, Recordset& list, DataCombo& dropDown) {
  const std::string name = askListName(words, list);
  if (name.empty())
    return;
  addListName(list, words, name);
  if (words.refillsAtOnce)
    dropDown.ReFill();
  dropDown.setText(toQString(name));
}

void deleteFromNameList(const NameListWords& words, Recordset& photos, Recordset& list,
                        DataCombo& dropDown) {
  const std::string name = toUtf8(dropDown.Text());
  if (name.empty())
    return;
  const QString title = toQString(words.deleteTitle);
  if (!confirmsDeletion(words)) {
    MsgBox(toQString(words.notChosen), title);
    return;
  }
  removeListName(photos, list, words, name, shortNumber(dropDown.BoundText().toInteger()));
  dropDown.ReFill();
  dropDown.setText({});
  photos.Update();
  MsgBox(toQString(words.done), title);
}

} // namespace hearthbook
