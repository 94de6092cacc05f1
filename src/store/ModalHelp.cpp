#include "ModalHelp.h"

#include "HelpKeys.h"

#include <QWidget>

namespace hearthbook {

ModalHelp::ModalHelp(QWidget* dialog, HelpPane pane, PublicVar& vars)
    : QObject(dialog), pane_(pane), vars_(vars) {
  new HelpKeys(dialog, [this](const QString& key) { show(key); });
}

void ModalHelp::show(const QString& key) {
  if (vars_.rsHelp)
    pane_.explain(key, shown_, *vars_.rsHelp);
}

} // namespace hearthbook
