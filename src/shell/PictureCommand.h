#pragma once

#include "WorkPool.h"

#include <QAbstractButton>
#include <QPixmap>

namespace hearthbook {

/// A command of the start screen: a picture that answers to the mouse, the keyboard and the
/// screen reader like any button, with its name below. Under the mouse or with the focus it
/// shows another picture.
class PictureCommand : public QAbstractButton {
  Q_OBJECT
public:
  explicit PictureCommand(QWidget* parent = nullptr);

  /// The pictures follow as soon as the pool has read them.
  void showPictures(WorkPool& pool, const QString& file, const QString& hoverFile);
  /// The mouse is over it, or it has the keyboard.
  [[nodiscard]] bool isPointedAt() const;

Q_SIGNALS:
  void pointedAt(bool isPointedAt);

protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void loadHoverPicture();
  void drawCaption(QPainter& painter) const;
  [[nodiscard]] QRectF pictureRect() const;
  [[nodiscard]] QRectF captionRect() const;

  QPixmap picture_;
  QPixmap restingPicture_;
  QString hoverFile_; ///< until it is read
  WorkPool* pool_ = nullptr;
  QPixmap hoverPicture_;
};

} // namespace hearthbook
