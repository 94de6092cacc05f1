#pragma once

#include "PictureBox.h"

#include <QPoint>

namespace hearthbook {

/// One thumbnail of the strip: it is pulled to another place with the mouse.
class StripCell : public PictureBox {
  Q_OBJECT
public:
  explicit StripCell(QWidget* parent);

Q_SIGNALS:
  void pulled(QPoint globalPosition); ///< with the button held, beyond a slip of the hand
  void letGo(QPoint globalPosition);  ///< behind the first `pulled`
  void menuAsked(QPoint globalPosition);
  void focusChanged();

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  QPoint pressedAt_;
  bool isPulled_ = false;
};

} // namespace hearthbook
