#pragma once

#include "Form.h"

#include <QMargins>
#include <QPointer>

class QLabel;
class QBoxLayout;

namespace hearthbook {

/// A work form as it stands in the frame: a title bar with the form's caption and a close
/// button, and the form below it. Tab stays inside. It covers the frame whole: a strip of the start
/// screen beside a form would only distract; the form's stage takes the largest scale that fits.
class FormWindow : public QWidget {
  Q_OBJECT
public:
  FormWindow(Form& form, QWidget* parent);

  [[nodiscard]] Form& form() const { return form_; }
  /// Puts the focus where it last was in the form, or on its first field.
  void focusForm();
  [[nodiscard]] int titleHeight() const;
  /// Edges of the room below the title bar that the form is not to use.
  void leaveFree(QMargins edges);
  /// Lets go of the form, which stays alive without a parent.
  void release();

private:
  QWidget* makeTitleBar();

  Form& form_;
  QLabel* caption_;
  QWidget* titleBar_;
  QBoxLayout* room_;
  QPointer<QWidget> firstFocus_; ///< what the form has chosen before it stood here
};

/// Makes a FormWindow read as a window of its own, named by its caption, to screen readers.
void announceFormWindows();

} // namespace hearthbook
