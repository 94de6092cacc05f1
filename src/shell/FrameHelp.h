#pragma once

#include "Navigator.h"

#include <QObject>

class QAction;

namespace hearthbook {

class Help;
class MDIForm1;
struct PublicVar;

/// "Show Help": decides when the help window is seen over the frame, and where. While it is
/// seen, the work form leaves its corner free.
class FrameHelp : public QObject, public HoverHelp {
  Q_OBJECT
public:
  FrameHelp(PublicVar& vars, MDIForm1& frame);

  void workFormActive(const QString& screen) override;
  void show(const QString& key) override; ///< fills the hidden window too

  void startScreenActive();
  void switched();     ///< the check mark of "Show Help" has changed
  void hiddenByUser(); ///< takes the check mark away

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void showWindow();
  void hideWindow();
  void place(Help& help);
  void shareFrame();

  PublicVar& vars_;
  MDIForm1& frame_;
  QAction* showHelp_;
  QString screen_; ///< of the work form that was active last
};

} // namespace hearthbook
