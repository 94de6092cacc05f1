#include "Progress.h"

#include "NestedLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>

namespace hearthbook {

namespace {

int mapAfterMs = 250;
constexpr int breatheEveryMs = 30; // a loop over every row sets the bar more often than is seen

} // namespace

Progress::Progress()
    : Form(QStringLiteral("Progress"), Kind::Aside), caption_(new QLabel),
      ProgressBar1_(new QProgressBar) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint); // no way to close
  setAttribute(Qt::WA_ShowWithoutActivating);
  caption_->setTextFormat(Qt::PlainText);
  ProgressBar1_->setObjectName(QStringLiteral("ProgressBar1"));
  ProgressBar1_->setAccessibleName(QStringLiteral("Progress"));
  ProgressBar1_->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
  auto* column = new QVBoxLayout(this);
  column->addWidget(caption_);
  column->addWidget(ProgressBar1_);
  connect(this, &QWidget::windowTitleChanged, caption_, &QLabel::setText);
  mapTimer_.setSingleShot(true);
  connect(&mapTimer_, &QTimer::timeout, this, &Progress::mapNow);
}

Progress::~Progress() = default;

void Progress::setPatience(int milliseconds) { mapAfterMs = milliseconds; }

void Progress::setRange(int minimum, int maximum) {
  minimum_ = minimum;
  maximum_ = std::max(minimum, maximum);
  value_ = std::clamp(value_, minimum_, maximum_);
  ProgressBar1_->setRange(minimum_, maximum_);
  showBar();
}

void Progress::setValue(int value) {
  value_ = std::clamp(value, minimum_, maximum_);
  if (isShown() && !isVisible() && sinceShown_.hasExpired(mapAfterMs))
    mapNow();
  const bool isDue = !sinceBreath_.isValid() || sinceBreath_.hasExpired(breatheEveryMs);
  if (isDue || value_ == maximum_ || !isVisible())
    showBar();
  if (isDue || value_ == maximum_)
    breathe();
}

void Progress::showBar() { ProgressBar1_->setValue(value_); }

void Progress::breathe() {
  sinceBreath_.start();
  const NestedLoop nested;
  QCoreApplication::processEvents(); // the block loses what the user does
}

void Progress::mapWindow() {
  if (!block_)
    block_ = std::make_unique<CommandBlock>();
  if (isVisible() || mapTimer_.isActive())
    return;
  sinceShown_.start();
  mapTimer_.start(std::max(0, mapAfterMs));
}

void Progress::mapNow() {
  mapTimer_.stop();
  if (isShown())
    Form::mapWindow();
}

void Progress::unmapWindow() {
  block_.reset();
  mapTimer_.stop();
  Form::unmapWindow();
}

} // namespace hearthbook
