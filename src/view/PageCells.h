#pragma once

#include "AlbumPage.h"
#include "FactsPanel.h"
#include "PagePhoto.h"
#include "PhotoFrame.h"

#include <QObject>

#include <array>
#include <optional>
#include <string>

class QFrame;

namespace hearthbook {

/// The four cells of an album page on its stage. At most one photo is selected; the width of
/// its frame's border says which.
class PageCells : public QObject {
  Q_OBJECT
public:
  struct Cell {
    PagePhoto* photo = nullptr;
    PhotoFrame* frame = nullptr;
    FactsPanel* facts = nullptr;
    QFrame* border = nullptr;
    std::string tag{}; ///< the photo's id; an empty cell keeps the last one's
  };

  PageCells(Stage& stage, QObject* parent);

  [[nodiscard]] const Cell& at(int cell) const { return cells_[cell]; }
  [[nodiscard]] std::array<PagePhoto*, photosOnPage> photos() const;

  void fill(int cell, const std::string& id); ///< a photo belongs here
  void showFacts(int cell, const PhotoFacts& facts);
  void empty(int cell);

  void select(int cell); ///< and no other
  void rest(int cell);   ///< its frame as that of a photo that is not selected
  /// The first cell whose frame says so.
  [[nodiscard]] std::optional<int> selected() const;

  /// The cell whose photo has the keyboard.
  [[nodiscard]] std::optional<int> focused() const;
  void focus(int cell); ///< where it is empty the first
  /// The keyboard leaves a cell that has become empty.
  void keepFocusOnPhotos();

  /// The controls in the order in which Tab goes through them.
  static constexpr std::size_t tabStops = std::size_t{photosOnPage} * 4;
  [[nodiscard]] std::array<QWidget*, tabStops> tabOrder() const;

Q_SIGNALS:
  void clicked(int cell);
  void opened(int cell);
  void descriptionAsked(int cell);
  void soundAsked(int cell);
  void nameChosen(int cell);

private:
  Cell make(int index, Stage& stage);
  void wire(int index);

  std::array<Cell, photosOnPage> cells_;
};

} // namespace hearthbook
