#pragma once

#include "WorkPool.h"

#include <QAbstractButton>
#include <QPixmap>

namespace hearthbook {

/// A command of the start screen: a picture that answers to the mouse, the keyboard and the
/// screen reader like any button, with its name below. While it is pointed at it shows another
/// picture.
class PictureCommand : public QAbstractButton {
  Q_OBJECT
public:
  explicit PictureCommand(QWidget* parent = nullptr);

  /// The pictures follow the first paint, as soon as the pool has read them.
  void showPictures(WorkPool& pool, const QString& file, const QString& hoverFile);
  /// Its owner says so; a command that is disabled is never pointed at.
  void setPointedAt(bool isPointedAt);
  [[nodiscard]] bool isPointedAt() const { return isPointedAt_ && isEnabled(); }

Q_SIGNALS:
  void reached(); ///< by the mouse, or by the keys that go from one control to the next

protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void loadPicture();
  void loadHoverPicture();
  void drawCaption(QPainter& painter) const;
  [[nodiscard]] QRectF pictureRect() const;
  [[nodiscard]] QRectF captionRect() const;

  QPixmap picture_;
  QPixmap restingPicture_;
  QString file_;      ///< until it is read
  QString hoverFile_; ///< until it is read
  WorkPool* pool_ = nullptr;
  QPixmap hoverPicture_;
  bool isPointedAt_ = false;
};

} // namespace hearthbook
