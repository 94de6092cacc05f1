#pragma once

#include "WorkPool.h"

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QSet>

#include <filesystem>

namespace hearthbook {

/// The small pictures of a list of files, decoded beside the window's thread when they are
/// first asked for.
class SmallPictures : public QObject {
  Q_OBJECT
public:
  SmallPictures(WorkPool& pool, int side, QObject* parent); ///< `side` in logical pixels

  /// The picture of the file in this row, or blank paper until ready() tells of it. A file that
  /// is no picture keeps the blank paper.
  [[nodiscard]] QPixmap of(int row, const std::filesystem::path& file);

  void clear(); ///< the rows stand for other files from now on

Q_SIGNALS:
  void ready(int row);

private:
  void request(int row, const std::filesystem::path& file);
  void arrived(int row, QPixmap picture);

  WorkPool& pool_;
  int side_;
  double ratio_; ///< device pixels per logical pixel
  int list_ = 0; ///< counts lists, so that a late picture of the last one is not shown in this
  QPixmap blank_;
  QCache<int, QPixmap> kept_;
  QSet<int> asked_;
};

} // namespace hearthbook
