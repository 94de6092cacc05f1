#pragma once

#include "HelpPane.h"
#include "PublicVar.h"

#include <QObject>

namespace hearthbook {

/// The hover help of a dialog, in a pane on the dialog itself: explains each control that has
/// the property `helpKey` while the mouse is over it. Lives as long as the dialog.
class ModalHelp : public QObject {
  Q_OBJECT
public:
  ModalHelp(QWidget* dialog, HelpPane pane, PublicVar& vars);

  void show(const QString& key); ///< "Add From File*Drive"

private:
  HelpPane pane_;
  PublicVar& vars_;
  QString shown_;
};

} // namespace hearthbook
