#pragma once

#include "Stage.h"

namespace hearthbook {

/// The viewing area: a stage on the stage of the zoom view, in which the photo lies.
class ZoomPanel : public Stage {
  Q_OBJECT
public:
  explicit ZoomPanel(QWidget* parent = nullptr);

  void placeDrawn(); ///< the children that the drawing has put here

protected:
  void paintEvent(QPaintEvent* event) override;
};

} // namespace hearthbook
