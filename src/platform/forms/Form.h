#pragma once

#include "Twips.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <vector>

class QEventLoop;

namespace hearthbook {

/// Who changed rows of the album; each open form returns to its page by the rule for that.
struct RowsChanged {
  enum class By { EditorClosed, BatchEdited, OrderWritten };
  By by = By::EditorClosed;
  std::int64_t resultRow = 0; ///< after a batch: with which row, from 0, the result page begins
};

/// The base of every form.
///
/// A form exists once and is reached through Forms. It can be used without having been shown:
/// its opener sets Tag, caption or a control first. Work forms are children of the frame at
/// the place and size given in twips, shown at the largest uniform scale that the frame holds;
/// dialogs are modal windows of their own. In a dialog, Return presses the focused or else the
/// default button, Escape the button with the property `cancelButton` or else closes.
class Form : public QWidget {
  Q_OBJECT
public:
  enum class Kind {
    Work,     ///< a child of the frame, with a title bar
    Backdrop, ///< a child of the frame behind all work forms, without a title bar
    Dialog,   ///< a window of its own
    Aside,    ///< a window of its own that never counts as being in front: Progress, Help
  };

  /// `name` is the form's given name, such as "DBeditor".
  Form(QString name, Kind kind);
  ~Form() override;

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
  /// destroyed after the handlers that run in it have returned. False, and the form stays, if
  /// unloading() refuses; if it throws the form stays too.
  bool Unload();

  /// Shown by its opener and not hidden since, wherever it stands among the windows.
  [[nodiscard]] bool isShown() const { return shown_; }

  /// Runs at each Unload, before unloading(): pending entries are written here. Returns false
  /// to stay.
  void beforeUnload(std::function<bool()> step);

  /// Rows of the album changed under this form.
  virtual void rowsChanged(const RowsChanged& change);

protected:
  /// Runs once, before Forms::get returns the form; the caller's settings come later.
  virtual void load() {}
  /// Runs when the form comes to the front among our forms: when it is shown, and when the
  /// forms over it have gone. Message, input and file boxes, Progress, Help and switching
  /// programs do not cause it.
  virtual void activated() {}
  /// Runs when the form is unloaded, by the user or the program. The form is still whole.
  /// Returns false to stay.
  virtual bool unloading() { return true; }

  virtual void mapWindow(); ///< brings a form that is a window of its own onto the screen
  virtual void unmapWindow();

  void closeEvent(QCloseEvent* event) override; ///< the user's closing is an Unload
  void keyPressEvent(QKeyEvent* event) override;

private:
  friend class Forms;
  friend class FormHost;
  [[nodiscard]] bool isHosted() const;
  void present();
  void endShowing();
  bool mayUnload();
  bool pressDefault();
  void cancel();

  QString name_;
  Kind kind_;
  int madeAtDepth_;
  bool shown_ = false;
  bool unloading_ = false; ///< is being asked
  bool gone_ = false;      ///< unloaded, not yet destroyed
  QEventLoop* modalLoop_ = nullptr;
  std::vector<std::function<bool()>> beforeUnload_;
};

/// Where work forms are shown: the frame implements it.
///
/// It tells activate() when the user brings another work form to the front.
class FormHost {
public:
  virtual ~FormHost() = default;
  virtual void showForm(Form& form) = 0; ///< to the front, at left 0, top 0
  virtual void hideForm(Form& form) = 0;
  virtual void removeForm(Form& form) = 0; ///< it is unloaded; perhaps it was never shown
  /// The topmost shown form, whether or not the frame has the keyboard; null if none is shown.
  [[nodiscard]] virtual Form* activeForm() const = 0;
  [[nodiscard]] virtual QWidget* window() = 0; ///< the parent of dialogs

protected:
  /// The form came to the front of the frame. May be told more than once.
  static void activate(Form& form);
};

} // namespace hearthbook
