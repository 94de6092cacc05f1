#pragma once

#include <QLabel>

namespace hearthbook {

/// A label of one line whose text, where it is longer than the room, is shown with its middle
/// left out. text() and what a screen reader says stay whole.
class ElidedLabel : public QLabel {
  Q_OBJECT
public:
  using QLabel::QLabel;

  [[nodiscard]] QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
};

} // namespace hearthbook
