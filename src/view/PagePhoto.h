#pragma once

#include "PictureBox.h"

namespace hearthbook {

/// A photo of an album page: a click (or the blank key) selects it, a double click (or Return)
/// opens it. The keyboard reaches it while it shows a photo.
class PagePhoto : public PictureBox {
  Q_OBJECT
public:
  explicit PagePhoto(QWidget* parent = nullptr);

  /// A photo belongs here, even if its pixels are still on their way.
  void setSource(bool isThere);
  [[nodiscard]] bool hasSource() const { return hasSource_; }

Q_SIGNALS:
  void clicked();
  void opened();

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  bool hasSource_ = false;
  bool isPressed_ = false;
  bool showsFocus_ = false; ///< it came by the keyboard
};

} // namespace hearthbook
