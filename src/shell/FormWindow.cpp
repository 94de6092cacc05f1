#include "FormWindow.h"

#include "Look.h"

#include <QAccessibleWidget>
#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace hearthbook {

namespace {

constexpr int border = 2;

QAccessibleInterface* formWindowInterface(const QString& className, QObject* object) {
  if (className != QStringLiteral("hearthbook::FormWindow"))
    return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
}

} // namespace

FormWindow::FormWindow(Form& form, QWidget* parent)
    : QWidget(parent, Qt::SubWindow), form_(form), caption_(new QLabel), titleBar_(makeTitleBar()),
      room_(new QVBoxLayout), firstFocus_(form.focusWidget()) {
  setAutoFillBackground(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(titleBar_);
  form_.setParent(this);
  form_.setWindowFlags(Qt::Widget);
  room_->setContentsMargins(0, 0, 0, 0);
  room_->addWidget(&form_);
  column->addLayout(room_, 1);
  const auto showCaption = [this](const QString& caption) {
    caption_->setText(caption);
    setWindowTitle(caption);
    setAccessibleName(caption); // a widget inside a window is not named by its title
  };
  showCaption(form_.caption());
  connect(&form_, &QWidget::windowTitleChanged, this, showCaption);

  auto* close = new QAction(this);
  close->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)});
  close->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(close, &QAction::triggered, &form_, &QWidget::close);
  addAction(close);
}

QWidget* FormWindow::makeTitleBar() {
  auto* bar = new QWidget;
  bar->setAutoFillBackground(true);
  QPalette palette = bar->palette();
  palette.setColor(QPalette::Window, look::titleBar);
  palette.setColor(QPalette::WindowText, look::onDark);
  palette.setColor(QPalette::ButtonText, look::onDark);
  bar->setPalette(palette);

  QFont font = caption_->font();
  font.setBold(true);
  caption_->setFont(font);
  caption_->setTextFormat(Qt::PlainText);
  caption_->setMinimumWidth(1);

  auto* close = new QToolButton;
  close->setText(QStringLiteral("\u2715"));
  close->setAccessibleName(QStringLiteral("Close"));
  close->setToolTip(QStringLiteral("Close (Ctrl+W)"));
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::NoFocus);
  close->setStyleSheet(
      QStringLiteral("QToolButton { color: %1; border: none; padding: 2px 8px; }"
                     "QToolButton:hover { background: %2; color: %3; }")
          .arg(look::onDark.name(), look::panelYellow.name(), look::darkRed.name()));
  connect(close, &QToolButton::clicked, &form_, &QWidget::close); // a command by itself

  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(8, border, 0, border);
  row->addWidget(caption_, 1);
  row->addWidget(close);
  return bar;
}

void FormWindow::focusForm() {
  QWidget* last = form_.focusWidget();
  if (!last)
    last = firstFocus_; // a widget that moves into another window forgets it
  firstFocus_.clear();
  if (last && last->isEnabled() && !last->isHidden()) {
    last->setFocus(Qt::ActiveWindowFocusReason);
    return;
  }
  setFocus(Qt::ActiveWindowFocusReason);
  focusNextChild();
}

int FormWindow::titleHeight() const { return titleBar_->sizeHint().height(); }

void FormWindow::leaveFree(QMargins edges) { room_->setContentsMargins(edges); }

void FormWindow::release() {
  form_.hide();
  form_.setParent(nullptr);
}

void announceFormWindows() { QAccessible::installFactory(formWindowInterface); }

} // namespace hearthbook
