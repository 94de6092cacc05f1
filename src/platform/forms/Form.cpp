#include "Form.h"

#include "Command.h"
#include "Forms.h"
#include "NestedLoop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <utility>

namespace hearthbook {

namespace {

/// Over the middle of the window below it, and whole on the screen.
void centre(QWidget& window) {
  const QWidget* below = window.parentWidget() ? window.parentWidget()->window() : nullptr;
  const QRect room = window.screen()->availableGeometry();
  // The desktop draws a title bar and edges around it later; about as thick as our own.
  const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const int edge = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  QRect place(QPoint(0, 0), window.size() + QSize(2 * edge, titleBar + edge));
  place.moveCenter(below && below->isVisible() ? below->frameGeometry().center() : room.center());
  place.moveRight(qMin(place.right(), room.right()));
  place.moveBottom(qMin(place.bottom(), room.bottom()));
  place.moveLeft(qMax(place.left(), room.left()));
  place.moveTop(qMax(place.top(), room.top()));
  window.move(place.topLeft());
}

/// Among nested dialogs each stands over the one that opened it.
void standOver(QWidget& window, QWidget* below) {
  if (!below || below == &window)
    return;
  window.winId();
  window.windowHandle()->setTransientParent(below->windowHandle());
}

} // namespace

Form::Form(QString name, Kind kind)
    : name_(std::move(name)), kind_(kind), madeAtDepth_(NestedLoop::depth()) {
  setObjectName(name_);
}

Form::~Form() {
  if (modalLoop_)
    modalLoop_->quit();
  Forms::forget(*this);
}

bool Form::isHosted() const {
  return Forms::host() && (kind_ == Kind::Work || kind_ == Kind::Backdrop);
}

void Form::Show() {
  setWindowModality(Qt::NonModal);
  present();
  Forms::updateFront();
}

void Form::ShowModal() {
  if (modalLoop_)
    return;
  const QPointer<Form> self(this);
  {
    const UserTurn turn;
    QEventLoop loop;
    modalLoop_ = &loop;
    setWindowModality(Qt::ApplicationModal);
    present();
    Forms::updateFront();
    if (self && shown_)
      loop.exec();
    if (self)
      modalLoop_ = nullptr;
  }
  Forms::updateFront();
}

void Form::present() {
  shown_ = true;
  Forms::noteShown(*this, true);
  if (isHosted())
    Forms::host()->showForm(*this);
  else
    mapWindow();
}

void Form::mapWindow() {
  QWidget* frame = Forms::host() ? Forms::host()->window() : nullptr;
  const bool isDialog = kind_ == Kind::Dialog || kind_ == Kind::Aside;
  const Qt::WindowFlags flags =
      isDialog && !(windowFlags() & Qt::CustomizeWindowHint)
          ? Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint
          : windowFlags() | Qt::Window;
  if (parentWidget() != frame || windowFlags() != flags)
    setParent(frame, flags);
  if (!isVisible()) {
    ensurePolished();
    if (!testAttribute(Qt::WA_Resized))
      adjustSize();
    centre(*this);
    standOver(*this, QApplication::activeModalWidget());
  }
  show();
  raise();
  if (!testAttribute(Qt::WA_ShowWithoutActivating))
    activateWindow();
}

void Form::Hide() {
  if (!shown_)
    return;
  endShowing();
  if (isHosted())
    Forms::host()->hideForm(*this);
  else
    unmapWindow();
  Forms::updateFrontSoon();
}

void Form::unmapWindow() { hide(); }

void Form::endShowing() {
  shown_ = false;
  Forms::noteShown(*this, false);
  if (modalLoop_)
    modalLoop_->quit();
}

bool Form::mayUnload() {
  const auto asked = qScopeGuard([this] { unloading_ = false; });
  unloading_ = true;
  for (const auto& step : beforeUnload_)
    if (!step())
      return false;
  return unloading();
}

bool Form::Unload() {
  if (unloading_ || gone_)
    return gone_;
  if (!mayUnload())
    return false;
  gone_ = true;
  Forms::forget(*this);
  endShowing();
  if (isHosted())
    Forms::host()->removeForm(*this);
  else
    unmapWindow();
  dropLostFocusRules(*this);
  NestedLoop::deleteLater(this, madeAtDepth_);
  Forms::updateFrontSoon();
  return true;
}

void Form::beforeUnload(std::function<bool()> step) { beforeUnload_.push_back(std::move(step)); }

void Form::rowsChanged(const RowsChanged&) {}

void Form::closeEvent(QCloseEvent* event) {
  runCommand([this] { Unload(); });
  event->setAccepted(gone_);
}

void Form::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && pressDefault())
    return;
  if (event->key() == Qt::Key_Escape && kind_ == Kind::Dialog)
    return cancel();
  QWidget::keyPressEvent(event);
}

bool Form::pressDefault() {
  auto* target = qobject_cast<QPushButton*>(focusWidget());
  if (!target)
    for (QPushButton* button : findChildren<QPushButton*>())
      if (button->isDefault() && button->isVisible())
        target = button;
  if (target)
    target->click();
  return target != nullptr;
}

void Form::cancel() {
  for (QAbstractButton* button : findChildren<QAbstractButton*>())
    if (button->property("cancelButton").toBool() && button->isVisible())
      return button->click();
  close();
}

void FormHost::activate(Form& form) { Forms::cameToFront(form); }

} // namespace hearthbook
