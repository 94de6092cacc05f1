#pragma once

#include "ImageEdit.h"
#include "WheelSteps.h"

#include <QWidget>

#include <optional>

class QPainter;

namespace hearthbook {

class RegionButtons;

/// What lies on the page: the rectangle that the user draws, with handles to adjust it and its
/// small button, and the red outlines of what was saved. Mouse and keyboard draw here.
class MarkLayer : public QWidget {
  Q_OBJECT
public:
  explicit MarkLayer(QWidget* parent = nullptr);

  void setPage(ImageEdit& edit);
  void setUsable(bool usable); ///< otherwise nothing can be drawn or changed
  void showChanged();          ///< of the page or its zoom

Q_SIGNALS:
  void selecting(); ///< the rectangle has another place
  void buttonPressed(const hearthbook::RegionButton& button);
  void zoomAsked(int steps);                   ///< in above 0, out below
  void scrollAsked(double right, double down); ///< in twips

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

private:
  [[nodiscard]] bool hasPage() const;
  [[nodiscard]] double reach() const; ///< how near a handle is near, in pixels of the page
  void showPointer(QPointF position);
  void pull(QPointF position);
  void showMore(QPointF position);
  void showWhollyOnPage();
  bool pressArrow(int key, Qt::KeyboardModifiers held);
  bool removeSelection();
  void selectAll();
  void changed();

  static void paintHandles(QPainter& painter, const QRectF& rect, double scale);

  ImageEdit* edit_ = nullptr;
  RegionButtons* buttons_;
  bool isUsable_ = false;
  std::optional<QPointF> pressedAt_; ///< where a rectangle may begin
  bool isPulling_ = false;
  WheelSteps wheelSteps_; ///< of the zoom
};

} // namespace hearthbook
