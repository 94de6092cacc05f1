#include "HelpKeys.h"

#include <QAbstractScrollArea>
#include <QEvent>
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
  const bool onFocus = watched->property("helpOnFocus").toBool();
  if (event->type() == (onFocus ? QEvent::FocusIn : QEvent::MouseMove))
    show_(helpKeyOf(watched));
  return false;
}

} // namespace hearthbook
