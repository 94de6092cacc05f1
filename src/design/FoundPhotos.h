#pragma once

#include "DesignSearch.h"

#include <QWidget>

#include <filesystem>
#include <functional>
#include <vector>

class QScrollBar;

namespace hearthbook {

class PhotoBox;
class WorkPool;

/// The thumbnails of the photos that were found, a page of them at a time.
class FoundPhotos : public QWidget {
  Q_OBJECT
public:
  static constexpr int columns = 2;
  static constexpr int rows = 5;

  explicit FoundPhotos(QWidget* parent = nullptr);

  using FileOf = std::function<std::filesystem::path(const DesignHit&)>;
  /// `bar` pages; `fileOf` tells the thumbnail, `notFound` stands in for one that is not there.
  void setSource(WorkPool& pool, QScrollBar* bar, FileOf fileOf, std::filesystem::path notFound);

  void showHits(std::vector<DesignHit> hits);
  void showNothing(); ///< nothing was looked for

Q_SIGNALS:
  void chosen(const std::string& pictureId);

protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  void makeCells();
  void layOutBar();
  void showPage();
  void showCell(int cell);
  [[nodiscard]] std::size_t hitOf(int cell) const;

  WorkPool* pool_ = nullptr;
  QScrollBar* bar_ = nullptr;
  FileOf fileOf_;
  std::filesystem::path notFound_;
  std::vector<PhotoBox*> cells_;
  std::vector<DesignHit> hits_;
  bool searched_ = false;
};

} // namespace hearthbook
