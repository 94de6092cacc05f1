#include "RegionButtons.h"

#include "Command.h"
#include "PagePlaces.h"
#include "Stage.h"

#include <QPushButton>

#include <algorithm>

namespace hearthbook {

namespace {

const QColor revertGrey{50, 50, 50};
constexpr double smallPoints = 7;

} // namespace

RegionButtons::RegionButtons(QWidget& layer) : QObject(&layer), layer_(layer) {}

void RegionButtons::setUsable(bool usable) {
  isUsable_ = usable;
  for (QPushButton* button : buttons_) {
    if (!usable)
      leave(*button);
    button->setEnabled(usable);
  }
}

QPushButton* RegionButtons::makeButton() {
  auto* button = new QPushButton(&layer_);
  button->setCursor(Qt::ArrowCursor);
  button->setEnabled(isUsable_);
  const std::size_t index = buttons_.size();
  onCommand(button, this, [this, index] {
    if (index < shown_.size()) {
      const RegionButton meant = shown_[index];
      Q_EMIT pressed(meant);
    }
  });
  buttons_.push_back(button);
  return button;
}

void RegionButtons::show(const ImageEdit& edit) {
  shown_ =
      edit.isEmpty() || edit.view().factor() <= 0 ? std::vector<RegionButton>() : edit.buttons();
  while (buttons_.size() < shown_.size())
    makeButton();
  const PagePlaces places(edit, layer_);
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const bool isShown = i < shown_.size() && isInSight(places.toWidget(shown_[i].place));
    if (isShown) {
      dress(*buttons_[i], shown_[i].reverts);
      buttons_[i]->setGeometry(placeOf(places.toWidget(shown_[i].place).toRect()));
    } else {
      leave(*buttons_[i]);
    }
    buttons_[i]->setVisible(isShown);
  }
}

void RegionButtons::dress(QPushButton& button, bool reverts) const {
  button.setText(reverts ? QStringLiteral("Revert") : QStringLiteral("Close"));
  button.setAccessibleName(reverts ? QStringLiteral("Revert Region")
                                   : QStringLiteral("Close Selection"));
  QPalette palette = layer_.palette();
  palette.setColor(QPalette::ButtonText, reverts ? revertGrey : QColor(Qt::black));
  button.setPalette(palette);
  QFont small = layer_.font();
  small.setPointSizeF(smallPoints * Stage::scaleOf(&layer_) * 96.0 / layer_.logicalDpiY());
  button.setFont(small);
}

/// Else the keyboard would go on to any other command.
void RegionButtons::leave(const QPushButton& button) {
  if (layer_.window()->focusWidget() == &button)
    layer_.setFocus();
}

bool RegionButtons::isInSight(const QRectF& region) const {
  return region.intersects(QRectF(layer_.rect()));
}

/// Above the rectangle's right end, or inside where there is no room.
QRect RegionButtons::placeOf(const QRect& region) const {
  const double toPixels = Stage::scaleOf(&layer_) / twipsPerPixel;
  const QSize size(qRound(RegionButton::size.width * toPixels),
                   qRound(RegionButton::size.height * toPixels));
  const int right = std::min(region.right() + 1, layer_.width());
  const int above = region.top() - size.height();
  const int top = above >= 0 ? above : region.top();
  const int lowest = std::max(0, layer_.height() - size.height());
  return {QPoint(std::max(0, right - size.width()), std::clamp(top, 0, lowest)), size};
}

} // namespace hearthbook
