#pragma once

#include "DesignSearch.h"
#include "WheelSteps.h"

#include <QWidget>

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

class QScrollBar;

namespace hearthbook {

class PhotoBox;
class WorkPool;

/// The thumbnails of the photos that were found, a page of them at a time. Tab reaches one of them;
/// from there the arrows, PageUp, PageDown, Home and End lead through all.
class FoundPhotos : public QWidget {
  Q_OBJECT
public:
  static constexpr int columns = 2;
  static constexpr int rows = 5;

  explicit FoundPhotos(QWidget* parent = nullptr);

  using FileOf = std::function<std::filesystem::path(const DesignHit&)>;
  /// Where the files of a photo are, asked beside the window's thread, since looking for a disc may
  /// wait for its drive.
  struct Files {
    FileOf thumbnail;
    FileOf photo; ///< shown where a cell has far more pixels than a thumbnail
  };
  /// `bar` pages; `notFound` stands in for what cannot be read.
  void setSource(WorkPool& pool, QScrollBar* bar, Files files, std::filesystem::path notFound);

  void showHits(std::vector<DesignHit> hits);
  void showNothing(); ///< nothing was looked for

Q_SIGNALS:
  void chosen(const std::string& pictureId);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  struct Wanted; ///< where a cell gets its picture
  struct Shown;
  static Shown thumbnailOf(const Wanted& wanted);
  static Shown photoOf(const Wanted& wanted);

  void makeCells();
  void layOutBar();
  void showPage();
  void showCell(int cell);
  void askForPicture(int cell);
  void ask(int cell, Shown (*find)(const Wanted& wanted));
  void show(int cell, const Shown& shown);
  bool walk(int key);
  void focusOn(int hit);
  void setTabStop(int cell);
  [[nodiscard]] int hitOf(int cell) const;
  [[nodiscard]] int focusedCell() const; ///< below 0: none
  [[nodiscard]] int count() const { return static_cast<int>(hits_.size()); }

  WorkPool* pool_ = nullptr;
  QScrollBar* bar_ = nullptr;
  Files files_;
  std::filesystem::path notFound_;
  std::vector<PhotoBox*> cells_;
  /// Of the pictures that are wanted in them.
  std::vector<std::shared_ptr<void>> tickets_;
  std::vector<DesignHit> hits_;
  bool searched_ = false;
  WheelSteps wheel_;
};

} // namespace hearthbook
