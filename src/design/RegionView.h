#pragma once

#include "PhotoLevels.h"
#include "PhotoRegion.h"

#include <QPixmap>
#include <QWidget>

#include <optional>

class QFrame;
class QScrollBar;

namespace hearthbook {

/// A photo of which the mouse marks a region in the proportions of a box.
///
/// At first the whole photo is in sight; the wheel enlarges it where the mouse is, Ctrl with + and
/// - in the middle, and the scroll bars move it then. The arrow keys move the region, + and - make
/// it larger and smaller.
class RegionView : public QWidget {
  Q_OBJECT
public:
  explicit RegionView(QWidget* parent = nullptr);

  /// The bars that move the photo, and the frame that shows the region.
  void setParts(QScrollBar* across, QScrollBar* down, QFrame* frame);

  /// Begins with as much of the photo as the box takes.
  void showPhoto(const PhotoLevels& photo, PixelSize box);
  /// A picture in which nothing can be marked.
  void showOnly(const Picture& picture);
  void clear();

  /// Empty where nothing is marked.
  [[nodiscard]] PixelRect region() const { return region_; }
  [[nodiscard]] const Picture& photo() const { return levels_.photo(); }
  void enlarge(double factor, QPointF kept); ///< what is seen at `kept` stays there

  /// A place of the photo in this widget's pixels.
  [[nodiscard]] QPointF toView(PhotoPoint point) const;

  [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
  void regionChanged();

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void take(const PhotoLevels& photo, std::optional<PixelSize> box);
  void setRegion(const PixelRect& region);
  void layOut();
  void placeFrame();
  void photoMoved();
  void paintPhoto();
  bool enlargeByKey(const QKeyEvent& event);
  [[nodiscard]] double scale() const;
  [[nodiscard]] QSizeF shownSize() const;
  [[nodiscard]] QPointF corner() const;
  [[nodiscard]] PhotoPoint toPhoto(QPointF position) const;
  [[nodiscard]] QRectF regionInView() const;

  QScrollBar* across_ = nullptr;
  QScrollBar* down_ = nullptr;
  QFrame* frame_ = nullptr;
  PhotoLevels levels_;
  QPixmap seen_; ///< the part of the photo that is in sight; none until it is painted
  std::optional<PixelSize> box_;
  PixelRect region_;
  double enlarged_ = 1;
  std::optional<PhotoPoint> pressed_;
};

} // namespace hearthbook
