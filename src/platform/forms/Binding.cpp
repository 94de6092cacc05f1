#include "BoundControls.h"

#include "Form.h"
#include "MsgBox.h"
#include "Text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopeGuard>

#include <algorithm>
#include <functional>
#include <utility>

namespace hearthbook {

namespace {

struct BoundControl {
  QWidget* control;
  std::string field;
  std::function<Value()> read;
  std::function<void(const Value&)> show;
  bool isChanged = false;
};

Value textOrNull(const QString& text) { return text.isEmpty() ? Value() : Value(toUtf8(text)); }

/// The form in which the control stands.
Form* formOf(QWidget* control) {
  while (control && !qobject_cast<Form*>(control))
    control = control->parentWidget();
  return static_cast<Form*>(control);
}

} // namespace

struct Binding::Impl : std::enable_shared_from_this<Impl> {
  explicit Impl(Recordset& set) : rows(set) {}

  Recordset& rows;
  std::vector<BoundControl> controls;
  bool isShowing = false; ///< what the controls tell then is no edit
  Form* form = nullptr;
  Recordset::Subscription subscription;

  BoundControl& of(const QWidget* control) {
    return *std::ranges::find(controls, control, &BoundControl::control);
  }

  void add(BoundControl bound);
  /// What a control calls when its content changes. May outlive the binding.
  std::function<void()> marker(const QWidget* control) {
    return [self = weak_from_this(), control] {
      const auto impl = self.lock();
      if (impl && !impl->isShowing)
        impl->of(control).isChanged = true;
    };
  }
  void showRow();
  void refresh();
  void writeOne(BoundControl& bound);
  void writeAll();
  void store();
  void cancel();
  [[nodiscard]] bool storeOrGiveUp();
};

void Binding::Impl::add(BoundControl bound) {
  if (!form && (form = formOf(bound.control)))
    form->beforeUnload([self = weak_from_this()] {
      const auto impl = self.lock();
      return !impl || impl->storeOrGiveUp();
    });
  controls.push_back(std::move(bound));
}

void Binding::Impl::showRow() {
  for (BoundControl& bound : controls)
    bound.isChanged = false;
  refresh();
}

void Binding::Impl::refresh() {
  const bool onRow = standsOnRow(rows);
  const auto shown = qScopeGuard([this] { isShowing = false; });
  isShowing = true;
  for (BoundControl& bound : controls) {
    if (!bound.isChanged)
      bound.show(onRow ? rows.Collect(bound.field) : Value());
    bound.control->setEnabled(onRow);
  }
}

void Binding::Impl::writeOne(BoundControl& bound) {
  if (!bound.isChanged)
    return;
  const Value value = bound.read();
  if (value.toText() != rows.Collect(bound.field).toText())
    rows.Collect(bound.field, value);
  bound.isChanged = false; // not where the field refused it: the edit is still the user's
}

void Binding::Impl::writeAll() {
  if (!standsOnRow(rows))
    return;
  for (BoundControl& bound : controls)
    writeOne(bound);
}

void Binding::Impl::store() {
  writeAll();
  if (rows.isOpen() && rows.isPending())
    rows.Update();
}

void Binding::Impl::cancel() {
  if (rows.isOpen() && rows.isPending())
    rows.CancelUpdate();
  showRow();
}

/// Nobody is to be shut in with an edit that the album does not take.
bool Binding::Impl::storeOrGiveUp() {
  try {
    store();
    return true;
  } catch (const std::exception& failure) {
    const QString question = QStringLiteral("The last change could not be stored: %1\n"
                                            "Close without it?");
    if (MsgBox(question.arg(toQString(failure.what())), {}, MsgIcon::Exclamation,
               MsgButtons::YesNo) != MsgAnswer::Yes)
      return false;
  }
  cancel();
  return true;
}

Binding::Binding(Recordset& rows) : impl_(std::make_shared<Impl>(rows)) {
  impl_->subscription =
      rows.observe({.leaving = [this] { write(); }, .arrived = [this] { impl_->showRow(); }});
}

Binding::~Binding() = default;

void Binding::bind(QLineEdit* edit, std::string field) {
  impl_->add({edit, std::move(field), [edit] { return textOrNull(edit->text()); },
              [edit](const Value& value) {
                edit->setText(toQString(value.toText()));
                edit->setCursorPosition(0); // a long text shows its beginning
              }});
  QObject::connect(edit, &QLineEdit::textChanged, edit, impl_->marker(edit));
}

void Binding::bind(QPlainTextEdit* edit, std::string field) {
  impl_->add({edit, std::move(field), [edit] { return textOrNull(edit->toPlainText()); },
              [edit](const Value& value) { edit->setPlainText(toQString(value.toText())); }});
  QObject::connect(edit, &QPlainTextEdit::textChanged, edit, impl_->marker(edit));
}

void Binding::bind(DataCombo* combo, std::string field) {
  impl_->add({combo, std::move(field), [combo] { return combo->BoundText(); },
              [combo](const Value& value) { combo->setBoundText(value); }});
  QObject::connect(combo, &DataCombo::chosen, combo, impl_->marker(combo));
}

void Binding::show() { impl_->refresh(); }

void Binding::write() { impl_->writeAll(); }

bool Binding::isChanged(const QWidget* control) const { return impl_->of(control).isChanged; }

void Binding::markUnchanged(const QWidget* control) {
  BoundControl& bound = impl_->of(control);
  bound.isChanged = false;
  if (standsOnRow(impl_->rows))
    impl_->rows.CancelUpdate(bound.field);
}

void Binding::cancel() { impl_->cancel(); }

bool Binding::has(const QWidget* control) const {
  return std::ranges::find(impl_->controls, control, &BoundControl::control) !=
         impl_->controls.end();
}

} // namespace hearthbook
