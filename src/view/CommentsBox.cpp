#include "CommentsBox.h"

#include "Command.h"
#include "Look.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace hearthbook {

namespace {

constexpr int slideMs = 350;
constexpr double margin = 75;
constexpr TwipsSize closeSize{300, 270};
constexpr double hintHeight = 270;

} // namespace

CommentsBox::CommentsBox(TwipsSize size, const QString& closeLabel, Stage& stage)
    : Stage(size, &stage), stage_(stage) {
  setObjectName(QStringLiteral("CommentsBox"));
  setAccessibleName(QStringLiteral("Description"));
  hide();
  makeControls(closeLabel);
  stage_.place(this, {0, 0, size.width, 0});
  rise_.setDuration(slideMs);
  rise_.setEasingCurve(QEasingCurve::OutCubic);
  connect(&rise_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& steps) { standAt(steps.toInt()); });
}

void CommentsBox::makeControls(const QString& closeLabel) {
  const TwipsSize size = design();
  close_ = new QPushButton(QStringLiteral("X"), this);
  close_->setObjectName(QStringLiteral("Command10"));
  close_->setAccessibleName(QStringLiteral("Close the description"));
  close_->setToolTip(close_->accessibleName());
  place(close_, {size.width - closeSize.width - margin, margin, closeSize.width, closeSize.height});

  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setAccessibleName(accessibleName());
  scroll->viewport()->setAutoFillBackground(false);
  text_ = new QLabel;
  text_->setObjectName(QStringLiteral("lblComments"));
  text_->setWordWrap(true);
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  scroll->setWidget(text_);
  text_->setAutoFillBackground(false);
  const double top = 2 * margin + closeSize.height;
  place(scroll, {margin, top, size.width - 2 * margin, size.height - top - margin - hintHeight});

  closeHint_ = new QLabel(QStringLiteral("Click To Close"), this);
  closeHint_->setObjectName(closeLabel);
  closeHint_->setAlignment(Qt::AlignCenter);
  closeHint_->setCursor(Qt::PointingHandCursor);
  closeHint_->installEventFilter(this);
  place(closeHint_,
        {margin, size.height - margin - hintHeight, size.width - 2 * margin, hintHeight});

  onCommand(close_, this, &CommentsBox::putAway);
}

void CommentsBox::slideUp(const QString& text, const Slide& slide) {
  if (isHidden())
    focusBefore_ = QApplication::focusWidget();
  rise_.stop();
  slide_ = slide;
  text_->setText(text);
  standAt(0);
  raise();
  show();
  close_->setFocus();
  rise_.setStartValue(0);
  rise_.setEndValue(slide.steps);
  rise_.start();
}

void CommentsBox::standAt(int steps) {
  const double height = steps * slide_.step;
  stage_.setRect(this, {slide_.left, slide_.foot - height, design().width, height});
}

void CommentsBox::putAway() {
  rise_.stop();
  if (isHidden())
    return;
  const bool hadFocus = isAncestorOf(QApplication::focusWidget());
  hide();
  if (hadFocus && focusBefore_)
    focusBefore_->setFocus();
}

void CommentsBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(QWidget::rect(), look::sheet);
  const int width = qMax(1, qRound(scale()));
  painter.setPen(QPen(look::darkRed, width));
  painter.drawRect(
      QRectF(QWidget::rect()).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0));
}

bool CommentsBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == closeHint_ && event->type() == QEvent::MouseButtonRelease)
    runCommand([this] { putAway(); });
  return Stage::eventFilter(watched, event);
}

} // namespace hearthbook
