#include "ZoomKeys.h"

#include "Command.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QWidget>

namespace hearthbook {

ZoomKeys::ZoomKeys(QWidget& form) : QObject(&form), form_(form) {}

void ZoomKeys::add(const std::vector<QKeySequence>& keys, const std::function<void()>& command) {
  for (const QKeySequence& key : keys)
    connect(new QShortcut(key, &form_), &QShortcut::activated, this, asCommand(command));
}

void ZoomKeys::leaveUpAndDownTo(QWidget& control) { control.installEventFilter(this); }

bool ZoomKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride)
    return QObject::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool isOwn = key == Qt::Key_Up || key == Qt::Key_Down;
  if (isOwn)
    event->accept();
  return isOwn;
}

} // namespace hearthbook
