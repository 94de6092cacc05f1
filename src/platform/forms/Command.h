#pragma once

#include <QAbstractButton>
#include <QAction>

#include <functional>
#include <utility>

class QWidget;

namespace hearthbook {

/// What has to happen when the user is done with a field: it tidies the text, and returns
/// false to keep the focus. Runs when the focus goes to another field and before any command;
/// not for menus, boxes and other programs' windows.
void setLostFocusRule(QWidget* field, std::function<bool()> rule);

/// The form has ended: its fields may still lose the focus, but there is nobody to tidy up.
void dropLostFocusRules(const QWidget& form);

/// Ends the entry of the focused field; false where its rule keeps the focus.
[[nodiscard]] bool endEntry();

/// Ends the entry, then runs the command. False, and nothing done, where the entry's rule
/// keeps the focus or commands are blocked. A failure is reported here, so that it does not
/// unwind through the toolkit. Every command of the user comes through here, however it was
/// triggered: closing a window too.
bool runCommand(const std::function<void()>& command);

/// The function as a command, for signals other than a button's: a double click, a choice.
template <class Function> auto asCommand(Function function) {
  return [function = std::move(function)] { runCommand(function); };
}

// How a button or a menu item gets its command.

void onCommand(QAbstractButton* button, QObject* owner, std::function<void()> command);
void onCommand(QAction* action, QObject* owner, std::function<void()> command);

template <class Trigger, class Owner, class Base, class Result>
void onCommand(Trigger* trigger, Owner* owner, Result (Base::*handler)()) {
  onCommand(trigger, owner, std::function<void()>([owner, handler] { (owner->*handler)(); }));
}

/// For check boxes and check items: the handler is told the new state.
template <class Trigger, class Owner, class Base, class Result>
void onCommand(Trigger* trigger, Owner* owner, Result (Base::*handler)(bool)) {
  onCommand(trigger, owner, std::function<void()>([trigger, owner, handler] {
              (owner->*handler)(trigger->isChecked());
            }));
}

} // namespace hearthbook
