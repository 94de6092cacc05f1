#pragma once

#include "Stage.h"
#include "WheelSteps.h"

namespace hearthbook {

/// The viewing area: a stage on the stage of the zoom view, in which the photo lies.
class ZoomPanel : public Stage {
  Q_OBJECT
public:
  explicit ZoomPanel(QWidget* parent = nullptr);

  void placeDrawn(); ///< the children that the drawing has put here

Q_SIGNALS:
  /// The wheel was turned, over the photo or beside it: above 0 to magnify.
  void wheelTurned(int steps, QPointF position);

protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  WheelSteps wheel_;
};

} // namespace hearthbook
