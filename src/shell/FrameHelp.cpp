#include "FrameHelp.h"

#include "FormArea.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "Help.h"
#include "HelpPlace.h"
#include "MDIForm1.h"
#include "PublicVar.h"

#include <QApplication>
#include <QEvent>

#include <cmath>

namespace hearthbook {

namespace {

HelpPlace placeIn(const MDIForm1& frame) {
  const QSize room = frame.area().formRoom();
  return helpPlace(room.width(), room.height());
}

int toPixels(double twips, double scale) { return qRound(twips * scale / twipsPerPixel); }

} // namespace

FrameHelp::FrameHelp(PublicVar& vars, MDIForm1& frame)
    : vars_(vars), frame_(frame), showHelp_(frame.menu().item("mnuHelp")) {
  connect(&frame.commands(), &FrameCommands::helpSwitched, this, &FrameHelp::switched);
  frame_.installEventFilter(this);
  frame_.area().installEventFilter(this);
}

void FrameHelp::workFormActive(const QString& screen) {
  screen_ = screen;
  if (!showHelp_->isChecked())
    return hideWindow();
  auto& help = Forms::get<Help>();
  place(help);
  help.greet(screen);
  showWindow();
}

void FrameHelp::show(const QString& key) { Forms::get<Help>().ShowHoverHelp(key, *vars_.rsHelp); }

void FrameHelp::startScreenActive() { hideWindow(); }

void FrameHelp::switched() {
  auto& help = Forms::get<Help>();
  place(help);
  const Form* active = frame_.activeForm();
  if (!active || active->kind() == Form::Kind::Backdrop)
    return;
  if (help.Tag.isEmpty()) // the mouse has been nowhere yet
    help.greet(screen_);
  if (showHelp_->isChecked())
    showWindow();
  else
    hideWindow();
}

void FrameHelp::hiddenByUser() {
  showHelp_->setChecked(false);
  shareFrame();
}

// Some desktops give the keyboard to every window that appears.
void FrameHelp::showWindow() {
  Forms::get<Help>().Show();
  if (QApplication::activeWindow())
    frame_.activateWindow();
  shareFrame();
}

void FrameHelp::hideWindow() {
  if (auto* help = Forms::loaded<Help>())
    help->Hide();
  shareFrame();
}

void FrameHelp::place(Help& help) {
  const double scale = placeIn(frame_).scale;
  const QSize size(toPixels(helpWindowSize.width, scale), toPixels(helpWindowSize.height, scale));
  const int top = frame_.height() - size.height() - toPixels(helpWindowLift, scale);
  help.setGeometry(QRect(frame_.mapToGlobal(QPoint(0, top)), size));
}

void FrameHelp::shareFrame() {
  const auto* help = Forms::loaded<Help>();
  const HelpPlace place = placeIn(frame_);
  const bool isShown = help && help->isShown();
  frame_.area().leaveFree(isShown ? QMargins(static_cast<int>(std::ceil(place.left)), 0, 0,
                                             static_cast<int>(std::ceil(place.bottom)))
                                  : QMargins());
}

bool FrameHelp::eventFilter(QObject* watched, QEvent* event) {
  const bool isResized = watched == &frame_.area() && event->type() == QEvent::Resize;
  const bool isMoved = watched == &frame_ && event->type() == QEvent::Move;
  auto* help = isResized || isMoved ? Forms::loaded<Help>() : nullptr;
  if (help && help->isShown()) {
    place(*help);
    shareFrame();
  }
  return QObject::eventFilter(watched, event);
}

} // namespace hearthbook
