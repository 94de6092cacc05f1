#pragma once

#include "CellPicture.h"
#include "PrintPage.h"
#include "ResultPage.h"
#include "ResultPaging.h"
#include "Stage.h"

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QPainter;

namespace hearthbook {

class ResultCell;
class SelectionFrame;

/// The 24 thumbnails of a result page, on a stage of their own, and the keyboard in them: the
/// arrows walk, Space selects, Shift extends, Return looks closer.
class ResultGrid : public Stage {
  Q_OBJECT
public:
  explicit ResultGrid(QWidget* parent = nullptr);
  ~ResultGrid() override;

  /// Where pictures come from; `notFound` stands in for those that cannot be read.
  void setSource(PictureLoader& loader, WorkPool& pool, std::filesystem::path notFound);

  void showPhoto(int cell, const ResultPhoto& photo);
  void clearPhoto(int cell); ///< its tool tip stays as it was
  void setSelected(int cell, bool selected);
  void decodeAhead(const std::vector<std::filesystem::path>& files);

  [[nodiscard]] bool hasPhoto(int cell) const;
  [[nodiscard]] bool isWaiting() const; ///< for pixels
  /// With the files that `photoOf` gives for the photos' ids; where it has none, the thumbnails.
  using PhotoFile = std::function<std::optional<std::filesystem::path>(const std::string& id)>;
  [[nodiscard]] ContactPrint printPage(const PhotoFile& photoOf) const;

Q_SIGNALS:
  void toggleAsked(int cell);
  void rangeAsked(int cell); ///< everything up to here
  void moved(int cell);      ///< to where the keyboard went
  void zoomAsked(int cell);
  void allAsked();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  struct Place; ///< a cell, its frame and its picture

  void makePlace(int index);
  void wire(ResultCell& cell);
  void clicked(int cell, Qt::KeyboardModifiers held);
  void setCurrent(int cell);
  bool walk(QKeyEvent& event);
  bool act(const QKeyEvent& event);
  [[nodiscard]] int lastFilled() const;
  [[nodiscard]] Place& at(int cell) const;
  void paintPrint(QPainter& painter, const ResultCell& cell) const;
  void paintFocus(QPainter& painter) const;

  std::unique_ptr<FittedPictures> pictures_;
  std::array<std::unique_ptr<Place>, resultsPerPage> places_;
  int current_ = 0; ///< the cell that Tab reaches
};

} // namespace hearthbook
