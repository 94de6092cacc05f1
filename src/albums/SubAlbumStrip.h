#pragma once

#include "Stage.h"
#include "StripPictures.h"
#include "WheelSteps.h"

#include <QPoint>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>

class QScrollBar;

namespace hearthbook {

class PhotoOrder;
class StripCell;
class StripDrag;
class StripPage;
class StripZone;

/// The photos of a sub-album in their order, six to the row, three rows in view: a scroll bar
/// beside them and a bar above and below over which a pulled photo makes them scroll.
///
/// A photo is moved by pulling it with the mouse, or by the arrows with Control held; Delete
/// takes it out. The strip shows the order and asks for changes; it makes none itself.
class SubAlbumStrip : public Stage {
  Q_OBJECT
public:
  explicit SubAlbumStrip(QWidget* parent = nullptr);
  ~SubAlbumStrip() override;

  void setSource(StripPictures::Source source, const PhotoOrder& order);

  void showOrder();                                ///< another order, from its first row
  void showMove(std::size_t from, std::size_t to); ///< one photo of the order was moved
  void scrollToEnd();

  [[nodiscard]] std::size_t heldPictures() const { return pictures_->count(); }
  [[nodiscard]] bool isWaiting() const { return pictures_->isWaiting(); }

Q_SIGNALS:
  void moveAsked(std::size_t from, std::size_t to);
  void removeAsked(std::size_t position);
  void menuAsked(std::size_t position, QPoint globalPosition);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  void makeParts();
  void makeCell(std::size_t cell);
  void makeDrag();
  void makePointers();
  void scrolled();
  void setScrollRange();
  void loadView();
  void showCells();
  void showCell(std::size_t cell);
  void showPicture(std::size_t position);
  void setCurrent(std::size_t cell);
  void focusOn(std::size_t position);
  void moveByKey(std::size_t from, std::size_t to);
  void removeByKey(std::size_t position);
  bool act(const QKeyEvent& event);
  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] std::size_t first() const; ///< position of the first cell in view
  [[nodiscard]] std::optional<std::size_t> focused() const;
  [[nodiscard]] std::optional<std::size_t> photoAt(QPoint globalPosition) const;

  const PhotoOrder* order_ = nullptr;
  std::unique_ptr<StripPictures> pictures_;
  StripPage* page_;
  StripZone* above_;
  StripZone* below_;
  QScrollBar* scroll_;
  QWidget* noDrop_ = nullptr;
  QWidget* canDrop_ = nullptr;
  StripDrag* drag_ = nullptr;
  std::array<StripCell*, stripInView> cells_{};
  std::size_t lastScroll_ = 0;
  WheelSteps wheel_;
  std::size_t current_ = 0; ///< the cell that Tab reaches
};

} // namespace hearthbook
