#pragma once

#include <QAbstractListModel>
#include <QSize>

#include <filesystem>
#include <vector>

namespace hearthbook {

class SmallPictures;
class WorkPool;

/// The picture files of a folder, each with its name and a small picture of itself.
class FileListModel : public QAbstractListModel {
  Q_OBJECT
public:
  static constexpr int pictureSide = 96; ///< logical pixels

  FileListModel(WorkPool& pool, QObject* parent);

  /// How much room a file takes; else its name gets no more than its picture.
  void setPlaceSize(QSize size) { placeSize_ = size; }
  void setFiles(std::vector<std::filesystem::path> files);
  [[nodiscard]] const std::vector<std::filesystem::path>& files() const { return files_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
  SmallPictures* pictures_;
  QSize placeSize_;
  std::vector<std::filesystem::path> files_;
};

} // namespace hearthbook
