#include "HelpKeys.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QVariant>
#include <QWidget>

namespace hearthbook {

namespace {

QString helpKeyOf(const QObject* watched) {
  const QVariant own = watched->property("helpKey");
  // The mouse moves over the viewport of a list; the key stands on the list.
  return own.isValid() || !watched->parent() ? own.toString()
                                             : watched->parent()->property("helpKey").toString();
}

/// A move that a control inside a frame does not use goes on to the frame, whose help would
/// take the place of the control's.
bool isOverPart(QObject* watched, QEvent* event) {
  const QPoint position = static_cast<QMouseEvent*>(event)->position().toPoint();
  const QWidget* part = static_cast<QWidget*>(watched)->childAt(position);
  while (part && part != watched && !part->property("helpKey").isValid())
    part = part->parentWidget();
  return part && part != watched;
}

} // namespace

HelpKeys::HelpKeys(QWidget* form, Show show) : QObject(form), show_(std::move(show)) {
  const auto controls = form->findChildren<QWidget*>();
  for (QWidget* control : controls)
    if (control->property("helpKey").isValid())
      watch(control);
}

void HelpKeys::watch(QWidget* control) {
  control->setMouseTracking(true);
  control->installEventFilter(this);
  if (auto* area = qobject_cast<QAbstractScrollArea*>(control)) {
    area->viewport()->setMouseTracking(true);
    area->viewport()->installEventFilter(this);
  }
}

bool HelpKeys::eventFilter(QObject* watched, QEvent* event) {
  if (watched->property("helpOnFocus").toBool()) {
    if (event->type() == QEvent::FocusIn)
      show_(helpKeyOf(watched));
  } else if (event->type() == QEvent::MouseMove && !isOverPart(watched, event)) {
    show_(helpKeyOf(watched));
  }
  return false;
}

} // namespace hearthbook
