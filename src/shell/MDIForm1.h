#pragma once

#include "Form.h"
#include "FrameCommands.h"
#include "Navigator.h"

#include <QMainWindow>

namespace hearthbook {

class FormArea;
class FrameMenu;

/// The frame of all other forms: the menu, the start screen behind, the work forms over it.
/// The first form of the program; closing it writes what is pending, makes the closing backup
/// and ends the process.
class MDIForm1 : public QMainWindow, public FormHost, public Navigator {
  Q_OBJECT
public:
  MDIForm1(Album& album, ShellServices services);
  ~MDIForm1() override;

  /// Appears, with the start screen and the albums of the opened album. From here on closing
  /// makes the backup.
  void open();
  /// To the front of the desktop, with the box that may stand over it.
  void bringForward();
  /// Closes as soon as no dialog or long work stands in the way. A form that refuses to go has
  /// the last word.
  void closeWhenFree();
  [[nodiscard]] bool isClosing() const { return state_ == State::Closing; }

  void showForm(Form& form) override;
  void hideForm(Form& form) override;
  void removeForm(Form& form) override;
  [[nodiscard]] Form* activeForm() const override;
  [[nodiscard]] QWidget* window() override { return this; }

  void findPhoto() override;
  [[nodiscard]] bool canFindPhoto() const override { return true; }
  void addAlbumEntry(int albumId, const QString& name) override;
  void renameAlbumEntry(int albumId, const QString& name) override;
  void removeAlbumEntry(int albumId) override;
  void popUpEdit(QPoint globalPosition) override;

  [[nodiscard]] FrameMenu& menu() const { return *menu_; }
  [[nodiscard]] FrameCommands& commands() const { return *commands_; }
  [[nodiscard]] FormArea& area() const { return *area_; }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  enum class State { Starting, Open, Closing, Closed };

  void showAlbums();
  void chooseSize();
  void closeOrderly();

  Album& album_;
  FrameCommands* commands_;
  FrameMenu* menu_;
  FormArea* area_;
  State state_ = State::Starting;
};

} // namespace hearthbook
