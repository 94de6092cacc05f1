#pragma once

class QObject;

namespace hearthbook {

/// Held while events are handled inside a running handler.
///
/// What is deleted through it stays whole until the handlers that may still run in it have
/// returned: a plain deleteLater() would destroy a form in the loop of a dialog that one of
/// the form's own handlers has opened.
class NestedLoop {
public:
  NestedLoop();
  ~NestedLoop();
  NestedLoop(const NestedLoop&) = delete;
  NestedLoop& operator=(const NestedLoop&) = delete;

  [[nodiscard]] static int depth(); ///< how many are running inside one another
  /// Deletes an object that was made at that depth.
  static void deleteLater(QObject* object, int madeAtDepth);
  static void deleteAllNow(); ///< end of the process, end of a test
};

/// Blocks the user's commands while it lives: what is clicked and typed is lost, closing too.
class CommandBlock {
public:
  CommandBlock();
  ~CommandBlock();
  CommandBlock(const CommandBlock&) = delete;
  CommandBlock& operator=(const CommandBlock&) = delete;

  [[nodiscard]] static bool isActive();

private:
  int turn_; ///< blocks the commands of that turn alone
};

/// Held while the user is asked something inside a running handler: a modal form, a box, a
/// file dialog, a pop-up menu. Lifts the hourglass and the blocks around it meanwhile.
class UserTurn {
public:
  UserTurn();
  ~UserTurn();
  UserTurn(const UserTurn&) = delete;
  UserTurn& operator=(const UserTurn&) = delete;

private:
  NestedLoop loop_;
  int liftedHourglasses_;
};

} // namespace hearthbook
