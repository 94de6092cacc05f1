#pragma once

#include "Twips.h"

#include <QString>
#include <QWidget>

namespace hearthbook {

/// Who changed rows of the album; each open form returns to its page by the rule for that.
struct RowsChanged {
  enum class By { EditorClosed, BatchEdited, OrderWritten };
  By by = By::EditorClosed;
};

/// The base of every form.
///
/// A form exists once and is reached through Forms. It can be used without having been shown:
/// its opener sets Tag, caption or a control first. Work forms are children of the frame at
/// the place and size given in twips, shown at the largest uniform scale that the frame holds;
/// dialogs are modal windows of their own.
class Form : public QWidget {
  Q_OBJECT
public:
  enum class Kind {
    Work,     ///< a child of the frame, with a title bar
    Backdrop, ///< a child of the frame behind all work forms, without a title bar
    Dialog,   ///< a window of its own
  };

  /// `name` is the form's given name, such as "DBeditor".
  Form(QString name, Kind kind);

  [[nodiscard]] const QString& name() const { return name_; }
  [[nodiscard]] Kind kind() const { return kind_; }

  QString Tag; ///< the form's task, written by its opener

  /// The caption doubles as the form's mode.
  [[nodiscard]] QString caption() const { return windowTitle(); }
  void setCaption(const QString& caption) { setWindowTitle(caption); }

  void Show();      ///< not modal; a work form comes to the front of the frame
  void ShowModal(); ///< returns when the form has been hidden or unloaded
  void Hide();
  /// Ends the form's state at once: the next Forms::get makes a new one. The object itself is
  /// destroyed after the running handler has returned. unloading() may refuse.
  void Unload();

  /// Rows of the album changed under this form.
  virtual void rowsChanged(const RowsChanged& change);

protected:
  /// Runs once, before Forms::get returns the form; the caller's settings come later.
  virtual void load() {}
  /// Runs when the form comes to the front among our forms. Message, input and file boxes,
  /// Progress, Help and switching programs do not cause it.
  virtual void activated() {}
  /// Runs when the form is unloaded, by the user or the program. The form is still whole.
  /// Returns false to stay.
  virtual bool unloading() { return true; }

  void closeEvent(QCloseEvent* event) override; ///< the user's closing is an Unload

private:
  friend class Forms;
  friend class FormHost;
  QString name_;
  Kind kind_;
};

/// Where work forms are shown: the frame implements it.
class FormHost {
public:
  virtual ~FormHost() = default;
  virtual void showForm(Form& form) = 0; ///< to the front, at left 0, top 0
  virtual void hideForm(Form& form) = 0;
  virtual void removeForm(Form& form) = 0;            ///< the form is being unloaded
  [[nodiscard]] virtual Form* activeForm() const = 0; ///< null where none is shown
  [[nodiscard]] virtual QWidget* window() = 0;        ///< the parent of dialogs

protected:
  static void activate(Form& form) { form.activated(); }
};

} // namespace hearthbook
