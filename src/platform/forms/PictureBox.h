#pragma once

#include "Picture.h"

#include <QPixmap>
#include <QWidget>

namespace hearthbook {

/// Shows one picture filling the widget, sharp at every device pixel ratio. The caller fits
/// the widget to the picture's proportions. Until a new picture comes the last one stays.
class PictureBox : public QWidget {
  Q_OBJECT
public:
  explicit PictureBox(QWidget* parent = nullptr);

  void setPicture(const Picture& picture);
  void clear();
  [[nodiscard]] const Picture& picture() const { return picture_; }
  [[nodiscard]] bool hasPicture() const { return !picture_.isNull(); }

  /// Takes as much of the room as the picture's proportions let it, in the middle.
  void placeIn(QRect room);

  /// Device pixels that the widget covers: what to decode for it.
  [[nodiscard]] PixelSize wantedSize() const;

Q_SIGNALS:
  void pressed(QPointF position, Qt::MouseButton button);

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

private:
  void prepare();

  Picture picture_;
  QPixmap prepared_; ///< the picture at exactly the pixels that are covered
};

} // namespace hearthbook
