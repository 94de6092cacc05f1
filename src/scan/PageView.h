#pragma once

#include "ImageEdit.h"

#include <QWidget>

#include <vector>

class QPainter;

namespace hearthbook {

class PagePlaces;
class WorkPool;

/// Shows the page or photo under work, and above it the regions that were edited.
///
/// Where it is shown smaller than it is, a small copy is made beside the window's thread and
/// painted as soon as it is there; until then the pixels are painted roughly.
class PageView : public QWidget {
  Q_OBJECT
public:
  explicit PageView(QWidget* parent = nullptr);

  void setPage(const ImageEdit& edit, WorkPool& pool);
  void showChanged(); ///< the page, its elements, its zoom, or the size of this

  /// The page as small as it is shown; none where it is not shown smaller than it is.
  [[nodiscard]] Picture smallPage() const;
  /// Shown in place of the page until that has changed or showChanged() brings another copy.
  void showPreview(const Picture& smallPage);

  [[nodiscard]] bool isSharp() const; ///< no small copy is on its way

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  /// A picture on show, and its copy at the pixels of the screen.
  struct Layer {
    Picture full;
    PixelRect place;
    Picture small;
    PixelSize wanted; ///< of the copy; empty: the picture itself is painted
    bool isSmallOfFull = false;
  };

  [[nodiscard]] PixelSize wantedSize(PixelSize full, const PagePlaces& places) const;
  [[nodiscard]] Layer layerFor(const Picture& full, const PixelRect& place,
                               const PagePlaces& places) const;
  void makeSmall(const Layer& layer);
  void smallArrived(const Picture& full, const Picture& small);
  static void paint(QPainter& painter, const Layer& layer, QRectF target, const QRect& seen);

  const ImageEdit* edit_ = nullptr;
  WorkPool* pool_ = nullptr;
  std::vector<Layer> layers_; ///< the page first
};

} // namespace hearthbook
