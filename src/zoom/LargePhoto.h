#pragma once

#include "PictureBox.h"

#include <QString>

class QPainter;
class QPinchGesture;

namespace hearthbook {

/// A photo that may be far larger than what is seen of it: only the part in sight is painted,
/// from the pixels that there are. Where they are those of the screen they are copied as they
/// stand, else they are stretched: smoothly where finer ones do not come any more, and until they
/// come only where little is in sight.
class LargePhoto : public PictureBox {
  Q_OBJECT
public:
  explicit LargePhoto(QWidget* parent = nullptr);

  /// Stands at the foot of the picture and under the mouse: what is wrong with the photo.
  void setNote(const QString& note);
  [[nodiscard]] const QString& note() const { return note_; }

  void expectFiner(bool expected); ///< pixels than those shown are on their way

Q_SIGNALS:
  void mouseMoved(QPointF position, bool leftDown);
  void pinched(int steps, QPointF position); ///< above 0 to magnify

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

private:
  void paintNote(QPainter& painter) const;
  void pinch(QPinchGesture& gesture);

  QString note_;
  bool expectsFiner_ = false;
  double spread_ = 1; ///< of the fingers, since the last step
};

} // namespace hearthbook
