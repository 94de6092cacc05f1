#pragma once

#include "Stage.h"

#include <cstddef>

namespace hearthbook {

/// The three rows of the strip that are in view: grey bands of four photos behind the
/// thumbnails, which are its children, and a ring around the one with the focus.
class StripPage : public Stage {
  Q_OBJECT
public:
  explicit StripPage(QWidget* parent);

  void setView(std::size_t first, std::size_t count); ///< of the photos in the whole strip

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void paintFocus(QPainter& painter) const;

  std::size_t first_ = 0;
  std::size_t count_ = 0;
};

} // namespace hearthbook
