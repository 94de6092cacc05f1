#pragma once

#include "MsgBox.h"

#include <QString>

#include <deque>
#include <optional>

namespace hearthbook::test {

/// Answers boxes by a script, in order, for as long as it lives. The test fails on a box that
/// is not the next of the script, and on one that is left over at the end.
class BoxScript : public BoxPlayer {
public:
  BoxScript();
  ~BoxScript() override;
  BoxScript(const BoxScript&) = delete;
  BoxScript& operator=(const BoxScript&) = delete;

  /// A message with one OK; an empty title stands for the program's.
  void expectMessage(const QString& text, const QString& title = {}, MsgIcon icon = MsgIcon::None);
  void expectQuestion(const QString& text, const QString& title, MsgIcon icon, MsgButtons buttons,
                      MsgAnswer answer);
  /// A message that begins so, whatever its rest: the program's report of a failure.
  void expectFailure(const QString& part);
  void expectInput(const QString& prompt, const QString& title, const QString& answer);
  /// One that comes with a text in its line.
  void expectInputOf(const QString& initial, const QString& prompt, const QString& title,
                     const QString& answer);

  [[nodiscard]] bool isDone() const { return expected_.empty(); }

  MsgAnswer message(const QString& text, const QString& title, MsgIcon icon,
                    MsgButtons buttons) override;
  QString input(const QString& prompt, const QString& title, const QString& initial) override;

private:
  struct Box {
    bool isInput = false;
    bool isPart = false; ///< `text` stands somewhere in the message
    QString text{};
    QString title{};
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::Ok;
    MsgAnswer answer = MsgAnswer::Ok;
    QString typed{};
    std::optional<QString> initial{};
  };

  void expect(Box box);
  Box next(const Box& shown);

  std::deque<Box> expected_;
  BoxPlayer* former_;
};

} // namespace hearthbook::test
