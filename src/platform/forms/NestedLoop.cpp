#include "NestedLoop.h"

#include "Pointer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

struct Doomed {
  QPointer<QObject> object;
  int madeAtDepth;
};

int loopDepth = 0;
std::vector<Doomed> doomedObjects;

bool isUserInput(QEvent::Type type) {
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseMove:
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::ShortcutOverride:
  case QEvent::InputMethod:
  case QEvent::ContextMenu:
  case QEvent::TouchBegin:
  case QEvent::TouchUpdate:
  case QEvent::TouchEnd:
  case QEvent::TabletPress:
  case QEvent::TabletRelease:
  case QEvent::TabletMove:
  case QEvent::DragEnter:
  case QEvent::Drop:
  case QEvent::Close:
    return true;
  default:
    return false;
  }
}

/// Loses what the user does. What the program itself sends (a form that it closes) passes.
class InputFilter : public QObject {
public:
  bool eventFilter(QObject*, QEvent* event) override {
    const bool byUser =
        event->type() == QEvent::Shortcut || (event->spontaneous() && isUserInput(event->type()));
    if (byUser)
      event->ignore();
    return byUser;
  }
};

int currentTurn = 0;
std::vector<int> blockedTurns; ///< one entry for each block

/// The filter is there only while it has something to do.
void updateFilter() {
  static InputFilter filter;
  QCoreApplication* application = QCoreApplication::instance();
  application->removeEventFilter(&filter);
  if (CommandBlock::isActive())
    application->installEventFilter(&filter);
}

void changeTurn(int by) {
  currentTurn += by;
  updateFilter();
}

} // namespace

NestedLoop::NestedLoop() { ++loopDepth; }

NestedLoop::~NestedLoop() {
  --loopDepth;
  std::erase_if(doomedObjects, [](const Doomed& doomed) {
    if (doomed.madeAtDepth < loopDepth)
      return false;
    if (doomed.object)
      doomed.object->deleteLater();
    return true;
  });
}

int NestedLoop::depth() { return loopDepth; }

void NestedLoop::deleteLater(QObject* object, int madeAtDepth) {
  if (madeAtDepth >= loopDepth)
    object->deleteLater();
  else
    doomedObjects.push_back({object, madeAtDepth});
}

void NestedLoop::deleteAllNow() {
  for (const Doomed& doomed : std::exchange(doomedObjects, {}))
    delete doomed.object.data();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

CommandBlock::CommandBlock() : turn_(currentTurn) {
  blockedTurns.push_back(turn_);
  updateFilter();
}

CommandBlock::~CommandBlock() {
  blockedTurns.erase(std::ranges::find(blockedTurns, turn_));
  updateFilter();
}

bool CommandBlock::isActive() { return std::ranges::count(blockedTurns, currentTurn) > 0; }

UserTurn::UserTurn() : liftedHourglasses_(Hourglass::lift()) { changeTurn(1); }

UserTurn::~UserTurn() {
  changeTurn(-1);
  Hourglass::putBack(liftedHourglasses_);
}

} // namespace hearthbook
