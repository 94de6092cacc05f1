#include "MsgBox.h"

#include "Forms.h"
#include "NestedLoop.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <utility>

namespace hearthbook {

namespace {

const QString& programTitle() {
  static const QString title = QStringLiteral("Hearthbook");
  return title;
}

QWidget* boxParent() {
  if (QWidget* modal = QApplication::activeModalWidget())
    return modal;
  if (FormHost* host = Forms::host())
    return host->window();
  return QApplication::activeWindow();
}

QMessageBox::Icon shownIcon(MsgIcon icon) {
  switch (icon) {
  case MsgIcon::Critical:
    return QMessageBox::Critical;
  case MsgIcon::Question:
    return QMessageBox::Question;
  case MsgIcon::Exclamation:
    return QMessageBox::Warning;
  case MsgIcon::Information:
    return QMessageBox::Information;
  case MsgIcon::None:
    break;
  }
  return QMessageBox::NoIcon;
}

void addButtons(QMessageBox& box, MsgButtons buttons) {
  switch (buttons) {
  case MsgButtons::Ok:
    box.setStandardButtons(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    break;
  case MsgButtons::OkCancel:
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.setEscapeButton(QMessageBox::Cancel);
    break;
  case MsgButtons::YesNo:
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    break;
  }
}

/// Return presses the first button, but where a warning asks: whoever presses it unread loses
/// nothing then.
void chooseDefault(QMessageBox& box, MsgButtons buttons) {
  const bool isWarning = box.icon() == QMessageBox::Warning;
  switch (buttons) {
  case MsgButtons::Ok:
    return box.setDefaultButton(QMessageBox::Ok);
  case MsgButtons::OkCancel:
    return box.setDefaultButton(isWarning ? QMessageBox::Cancel : QMessageBox::Ok);
  case MsgButtons::YesNo:
    return box.setDefaultButton(isWarning ? QMessageBox::No : QMessageBox::Yes);
  }
}

MsgAnswer answerOf(int pressed) {
  switch (pressed) {
  case QMessageBox::Yes:
    return MsgAnswer::Yes;
  case QMessageBox::No:
    return MsgAnswer::No;
  case QMessageBox::Cancel:
    return MsgAnswer::Cancel;
  default:
    return MsgAnswer::Ok;
  }
}

constexpr int charactersOnLine = 90;

/// A prompt with longer lines than one likes to read has them broken.
void breakLongLines(QLabel& prompt) {
  const int widest = prompt.fontMetrics().averageCharWidth() * charactersOnLine;
  if (prompt.sizeHint().width() <= widest)
    return;
  prompt.setWordWrap(true);
  prompt.setFixedWidth(widest);
}

/// A box with more lines would be higher than a small screen.
constexpr int mostLines = 20;

QPlainTextEdit* scrollingLines(const QString& lines, const QString& name) {
  auto* list = new QPlainTextEdit(lines);
  list->setReadOnly(true);
  list->setTabChangesFocus(true);
  list->setLineWrapMode(QPlainTextEdit::NoWrap);
  list->setAccessibleName(name);
  list->setMinimumSize(list->fontMetrics().averageCharWidth() * charactersOnLine * 2 / 3,
                       list->fontMetrics().lineSpacing() * mostLines * 2 / 3);
  return list;
}

/// Where there are too many lines, those between the first one and the last paragraph scroll, so
/// that what the box tells of all and what it asks stay in sight.
void showText(QMessageBox& box, const QString& text) {
  const auto head = text.indexOf(QLatin1Char('\n'));
  if (text.count(QLatin1Char('\n')) < mostLines)
    return box.setText(text);
  const auto gap = text.lastIndexOf(QStringLiteral("\n\n"));
  const auto end = gap > head ? gap : text.size();
  box.setText(text.left(head));
  auto* grid = dynamic_cast<QGridLayout*>(box.layout());
  auto* buttons = box.findChild<QDialogButtonBox*>();
  const int column = grid->columnCount() - 1;
  grid->addWidget(scrollingLines(text.mid(head + 1, end - head - 1), text.left(head)),
                  grid->rowCount(), column);
  if (end < text.size()) {
    auto* tail = new QLabel(text.mid(end + 2));
    tail->setTextFormat(Qt::PlainText);
    tail->setWordWrap(true);
    grid->addWidget(tail, grid->rowCount(), column);
  }
  grid->addWidget(buttons, grid->rowCount(), 0, 1, -1);
}

/// The boxes that the user sees.
class RealBoxes : public BoxPlayer {
public:
  MsgAnswer message(const QString& text, const QString& title, MsgIcon icon,
                    MsgButtons buttons) override {
    QMessageBox box(boxParent());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setIcon(shownIcon(icon));
    addButtons(box, buttons);
    chooseDefault(box, buttons);
    showText(box, text);
    return answerOf(box.exec());
  }

  QString input(const QString& prompt, const QString& title, const QString& initial) override {
    QDialog box(boxParent());
    box.setWindowTitle(title);
    auto* label = new QLabel(prompt);
    label->setTextFormat(Qt::PlainText);
    breakLongLines(*label);
    auto* edit = new QLineEdit(initial);
    edit->selectAll();
    edit->setMinimumWidth(box.fontMetrics().averageCharWidth() * 40);
    edit->setAccessibleName(prompt); // a buddy would take an ampersand out of the prompt
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    auto* column = new QVBoxLayout(&box);
    for (QWidget* part : {static_cast<QWidget*>(label), static_cast<QWidget*>(edit),
                          static_cast<QWidget*>(buttons)})
      column->addWidget(part);
    return box.exec() == QDialog::Accepted ? edit->text() : QString();
  }
};

RealBoxes realBoxes;
BoxPlayer* player = &realBoxes;

} // namespace

MsgAnswer MsgBox(const QString& text, const QString& title, MsgIcon icon, MsgButtons buttons) {
  const UserTurn turn;
  return player->message(text, title.isEmpty() ? programTitle() : title, icon, buttons);
}

QString InputBox(const QString& prompt, const QString& title, const QString& initial) {
  const UserTurn turn;
  return player->input(prompt, title.isEmpty() ? programTitle() : title, initial);
}

BoxPlayer* BoxPlayer::install(BoxPlayer* newPlayer) {
  BoxPlayer* former = std::exchange(player, newPlayer ? newPlayer : &realBoxes);
  return former == &realBoxes ? nullptr : former;
}

} // namespace hearthbook
