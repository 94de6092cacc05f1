#include "Help.h"

#include "Forms.h"
#include "HelpPlace.h"
#include "Look.h"
#include "Stage.h"
#include "ui_Help.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace hearthbook {

namespace {

const QString greeting = QStringLiteral(
    "Move your mouse over the different elements in the window to see its description.\n"
    "To hide this help window, go to the \"Help\" menu on the top and uncheck the \"Show Help\" "
    "option.");

std::unique_ptr<Ui::Help> drawn(QWidget* form) {
  auto ui = std::make_unique<Ui::Help>();
  ui->setupUi(form);
  return ui;
}

} // namespace

Help::Help()
    : Form(QStringLiteral("Help"), Kind::Aside), ui(drawn(this)), pane_(*ui->Frame1, *ui->Text1) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  (new Stage(helpWindowSize, this))->placeAsDrawn(this);
  QPalette note = palette();
  note.setColor(QPalette::Window, look::panelYellow);
  note.setColor(QPalette::WindowText, look::darkRed);
  note.setColor(QPalette::ButtonText, look::darkRed);
  setPalette(note);
  ui->Text1->setPlainText(greeting);
  connect(ui->closeButton, &QToolButton::clicked, this, &QWidget::close);
}

Help::~Help() = default;

// A desktop that places windows itself (Wayland) may put the note where it likes.
void Help::load() {
  setParent(Forms::host() ? Forms::host()->window() : nullptr, Qt::Tool | Qt::FramelessWindowHint |
                                                                   Qt::WindowStaysOnTopHint |
                                                                   Qt::WindowDoesNotAcceptFocus);
}

void Help::greet(const QString& screen) { pane_.write(screen, greeting); }

void Help::ShowHoverHelp(const QString& key, Recordset& rsHelp) { pane_.explain(key, Tag, rsHelp); }

void Help::mapWindow() {
  show();
  raise();
}

void Help::closeEvent(QCloseEvent* event) {
  event->ignore();
  Hide();
  Q_EMIT closedByUser();
}

void Help::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(look::edge);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// It has no title bar; the heading serves.
void Help::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton)
    windowHandle()->startSystemMove();
}

bool Help::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
    lieOnTop(event->type() == QEvent::WindowUnblocked);
  return Form::event(event);
}

// Over a dialog it would be in the way, and could neither be moved nor closed.
void Help::lieOnTop(bool onTop) { windowHandle()->setFlag(Qt::WindowStaysOnTopHint, onTop); }

} // namespace hearthbook
