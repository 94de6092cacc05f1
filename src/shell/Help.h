#pragma once

#include "Form.h"
#include "HelpPane.h"

#include <memory>

namespace Ui {
class Help;
}

namespace hearthbook {

/// The help window: a small note above all other windows that explains the control under the
/// mouse. It never takes the keyboard. The user's closing hides it only; `Tag` is the key now
/// shown, and it is kept up to date while the note is hidden, too.
class Help : public Form {
  Q_OBJECT
public:
  Help();
  ~Help() override;

  void greet(const QString& screen); ///< what a work form begins with: "Build Album"
  void ShowHoverHelp(const QString& key, Recordset& rsHelp);

Q_SIGNALS:
  void closedByUser();

protected:
  void load() override;
  void mapWindow() override;
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

private:
  void lieOnTop(bool onTop);

  std::unique_ptr<Ui::Help> ui;
  HelpPane pane_;
};

} // namespace hearthbook
