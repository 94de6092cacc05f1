#include "Guard.h"

#include "MsgBox.h"
#include "NestedLoop.h"
#include "Text.h"

#include <QAbstractEventDispatcher>
#include <QEvent>
#include <QEventLoop>
#include <QMetaObject>
#include <QTimer>

#include <filesystem>
#include <new>
#include <string>
#include <utility>

namespace hearthbook {

namespace {

std::string inPlainWords(const std::exception& failure) {
  if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&failure)) {
    std::string words = file->code().message() + ":\n" + file->path1().string();
    if (!file->path2().empty())
      words += "\n" + file->path2().string();
    return words;
  }
  if (dynamic_cast<const std::bad_alloc*>(&failure))
    return "There is not enough memory for this.";
  return failure.what();
}

void showFailure(const std::string& words) {
  static bool showing = false; // what fails again behind the box would pile up boxes
  if (std::exchange(showing, true))
    return;
  MsgBox(toQString("This could not be done:\n\n" + words), {}, MsgIcon::Critical);
  showing = false;
}

/// No box can be opened while a widget is being painted or laid out.
bool isWithinDrawing(QEvent::Type type) {
  switch (type) {
  case QEvent::Paint:
  case QEvent::UpdateRequest:
  case QEvent::Resize:
  case QEvent::Move:
  case QEvent::LayoutRequest:
  case QEvent::Show:
  case QEvent::Hide:
    return true;
  default:
    return false;
  }
}

} // namespace

void reportFailure(const std::exception& failure) { showFailure(inPlainWords(failure)); }

bool guarded(const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception& failure) {
    reportFailure(failure);
    return false;
  }
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  const QEvent::Type type = event->type(); // a handler may have deleted the event's receiver
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& failure) {
    if (isWithinDrawing(type))
      QMetaObject::invokeMethod(
          this, [words = inPlainWords(failure)] { showFailure(words); }, Qt::QueuedConnection);
    else
      reportFailure(failure);
    return true;
  }
}

void waitUntil(const std::function<bool()>& done) {
  if (done())
    return;
  const NestedLoop nested;
  const CommandBlock block;
  QTimer heartbeat; // what another thread sets without telling is seen too
  heartbeat.start(10);
  while (!done())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace hearthbook
