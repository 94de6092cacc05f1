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
  /// A region that is edited may be all of the page.
  struct Place {
    PixelRect rect;
    bool isPage = false;
    bool operator==(const Place&) const = default;
  };
  /// A picture on show, and its copy at the pixels of the screen.
  struct Layer {
    Picture full;
    Place place;
    Picture small;
    PixelSize wanted; ///< of the copy; empty: the picture itself is painted
    bool isSmallOfFull = false;
  };
  /// A copy that was made, or could not be made.
  struct Made {
    Place place;
    Picture full;
    PixelSize wanted;
    Picture small;
  };

  [[nodiscard]] PixelSize wantedSize(PixelSize full, const PagePlaces& places) const;
  [[nodiscard]] Layer layerFor(const Picture& full, const Place& place,
                               const PagePlaces& places) const;
  void makeSmallIfMissing(const Layer& layer);
  void makeSmall(const Layer& layer);
  void smallArrived(const Made& made);
  static void paint(QPainter& painter, const Layer& layer, QRectF target, const QRect& seen);

  const ImageEdit* edit_ = nullptr;
  WorkPool* pool_ = nullptr;
  std::vector<Layer> layers_;   ///< the page first
  std::vector<Place> inMaking_; ///< the places whose copies are on their way, one for each
};

} // namespace hearthbook
