#include "Command.h"

#include "Guard.h"
#include "NestedLoop.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethod>
#include <QPointer>
#include <QSignalBlocker>
#include <QWidget>

namespace hearthbook {

namespace {

/// The focus comes back from these without the user having left the field.
bool isPassing(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
         reason == Qt::MenuBarFocusReason;
}

/// Watches one field for the end of its entry.
class EntryWatch : public QObject {
public:
  EntryWatch(QWidget* field, std::function<bool()> rule)
      : QObject(field), field_(field), rule_(std::move(rule)) {
    field->installEventFilter(this);
    if (field->hasFocus())
      current() = this;
  }

  /// The field in which the user is, also while a menu or another program has the keyboard.
  static QPointer<EntryWatch>& current() {
    static QPointer<EntryWatch> watch;
    return watch;
  }

  bool endForCommand() {
    if (std::exchange(refused_, false)) // the click that lost the focus is this command's
      return false;
    return !canBeReached() || run();
  }

  void drop() { dropped_ = true; }

  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
    case QEvent::FocusIn:
      current() = this;
      break;
    case QEvent::FocusOut:
      if (!isPassing(static_cast<QFocusEvent*>(event)->reason()))
        focusLost();
      break;
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
      refused_ = false;
      break;
    default:
      break;
    }
    return false;
  }

private:
  [[nodiscard]] bool canBeReached() const {
    const QWidget* modal = QApplication::activeModalWidget();
    return field_->isVisible() && (!modal || modal == field_->window());
  }

  void focusLost() {
    if (current() == this)
      current() = nullptr;
    refused_ = !run();
    if (refused_)
      field_->setFocus();
  }

  bool run() {
    if (running_ || dropped_)
      return true;
    running_ = true;
    bool done = true;
    guarded([&] { done = rule_(); });
    running_ = false;
    return done;
  }

  QWidget* field_;
  std::function<bool()> rule_;
  bool running_ = false;
  bool refused_ = false;
  bool dropped_ = false;
};

/// Runs the command of a button or an action; one that may not run now leaves no check behind.
template <class Trigger> auto runOrTakeBack(Trigger* trigger, std::function<void()> command) {
  return [trigger, command = std::move(command)](bool checked) {
    if (runCommand(command) || !trigger->isCheckable())
      return;
    const QSignalBlocker quiet(trigger);
    trigger->setChecked(!checked);
  };
}

void commitPreedit() {
  if (QGuiApplication::focusObject())
    QGuiApplication::inputMethod()->commit();
}

} // namespace

void setLostFocusRule(QWidget* field, std::function<bool()> rule) {
  new EntryWatch(field, std::move(rule));
}

void dropLostFocusRules(const QWidget& form) {
  for (QObject* inside : form.findChildren<QObject*>())
    if (auto* watch = dynamic_cast<EntryWatch*>(inside))
      watch->drop();
}

bool endEntry() {
  commitPreedit();
  return !EntryWatch::current() || EntryWatch::current()->endForCommand();
}

bool runCommand(const std::function<void()>& command) {
  if (CommandBlock::isActive() || !endEntry())
    return false;
  guarded(command);
  return true;
}

void onCommand(QAbstractButton* button, QObject* owner, std::function<void()> command) {
  QObject::connect(button, &QAbstractButton::clicked, owner,
                   runOrTakeBack(button, std::move(command)));
}

void onCommand(QAction* action, QObject* owner, std::function<void()> command) {
  QObject::connect(action, &QAction::triggered, owner, runOrTakeBack(action, std::move(command)));
}

} // namespace hearthbook
