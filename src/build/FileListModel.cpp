#include "FileListModel.h"

#include "SmallPictures.h"
#include "Text.h"

#include <QIcon>

#include <utility>

namespace hearthbook {

FileListModel::FileListModel(WorkPool& pool, QObject* parent)
    : QAbstractListModel(parent), pictures_(new SmallPictures(pool, pictureSide, this)) {
  connect(pictures_, &SmallPictures::ready, this,
          [this](int row) { Q_EMIT dataChanged(index(row), index(row), {Qt::DecorationRole}); });
}

void FileListModel::setFiles(std::vector<std::filesystem::path> files) {
  beginResetModel();
  files_ = std::move(files);
  pictures_->clear();
  endResetModel();
}

int FileListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(files_.size());
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid))
    return {};
  const auto& file = files_[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
    return toQString(file.filename());
  if (role == Qt::DecorationRole)
    return QIcon(pictures_->of(index.row(), file)); // an icon shows that it is chosen
  if (role == Qt::SizeHintRole && placeSize_.isValid())
    return placeSize_;
  return {};
}

} // namespace hearthbook
