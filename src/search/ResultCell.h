#pragma once

#include "PictureBox.h"

namespace hearthbook {

/// One thumbnail of a result page: white paper until its pixels are there.
class ResultCell : public PictureBox {
  Q_OBJECT
public:
  ResultCell(int index, QWidget* parent);

  [[nodiscard]] int index() const { return index_; }

  /// True from the moment that it is told what to show, before its pixels have come.
  [[nodiscard]] bool hasPhoto() const { return hasPhoto_; }
  void setHasPhoto(bool hasPhoto);
  [[nodiscard]] bool isSelected() const { return isSelected_; }
  void setSelected(bool selected);

Q_SIGNALS:
  void clicked(Qt::KeyboardModifiers held); ///< any button was released over it
  void doubleClicked();                     ///< behind the second of its clicks
  void focusChanged();

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  int index_;
  bool hasPhoto_ = false;
  bool isSelected_ = false;
  bool isSecondClick_ = false;
};

/// The frame around a cell whose photo is selected, with a tick in its corner.
class SelectionFrame : public QWidget {
  Q_OBJECT
public:
  explicit SelectionFrame(QWidget* parent);

protected:
  void paintEvent(QPaintEvent* event) override;
};

} // namespace hearthbook
