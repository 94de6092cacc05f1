#include "MarkerArrow.h"

#include "PhotoFacts.h"
#include "Stage.h"

#include <QLabel>

namespace hearthbook {

MarkerArrow::MarkerArrow(Stage& stage, QLabel& arrow, QObject* parent)
    : QObject(parent), stage_(stage), arrow_(arrow) {
  arrow_.setScaledContents(true);
  // A press on the arrow is one on the photo behind it.
  arrow_.setAttribute(Qt::WA_TransparentForMouseEvents);
  arrow_.hide();
}

void MarkerArrow::pointAt(const QWidget& photo, TwipsPoint marker, double side) {
  aim_ = {&photo, marker};
  photoMoved(photo, side);
  arrow_.raise();
  arrow_.show();
}

void MarkerArrow::photoMoved(const QWidget& photo, double side) {
  if (aim_ && aim_->photo == &photo)
    stage_.setRect(&arrow_, arrowRect(stage_.rect(&photo), aim_->marker, side));
}

void MarkerArrow::hide() {
  aim_.reset();
  arrow_.hide();
}

} // namespace hearthbook
