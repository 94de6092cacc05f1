#pragma once

#include "ImageEdit.h"
#include "Stage.h"

class QScrollBar;

namespace hearthbook {

class MarkLayer;
class PageView;
class WorkPool;

/// The box of the scan form in which the page lies, in twips: what shows the page and what lies on
/// it shrink to the page, and scroll where it is larger than the box.
class ScanArea : public Stage {
  Q_OBJECT
public:
  struct Parts {
    PageView* page = nullptr;
    MarkLayer* marks = nullptr;
    QScrollBar* across = nullptr;
    QScrollBar* down = nullptr;
  };

  explicit ScanArea(QWidget* parent = nullptr);

  void setParts(const Parts& parts, ImageEdit& edit, WorkPool& pool);
  void showChanged(); ///< of the page, its zoom or its elements
  void scrollBy(double right, double down);

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  void handOn(const QMouseEvent& event);
  void showBars();
  void scrolled();

  Parts parts_;
  ImageEdit* edit_ = nullptr;
};

} // namespace hearthbook
