#pragma once

#include <QPoint>
#include <QString>

namespace hearthbook {

/// What lower floors may ask of the frame above them.
class Navigator {
public:
  virtual ~Navigator() = default;
  virtual void findPhoto() = 0; ///< opens Search over the whole album
  [[nodiscard]] virtual bool canFindPhoto() const = 0;
  virtual void addAlbumEntry(int albumId, const QString& name) = 0;
  virtual void renameAlbumEntry(int albumId, const QString& name) = 0;
  virtual void removeAlbumEntry(int albumId) = 0;
  virtual void popUpEdit(QPoint globalPosition) = 0;
};

/// The help window, as the work forms see it.
class HoverHelp {
public:
  virtual ~HoverHelp() = default;
  virtual void workFormActive(const QString& screen) = 0; ///< "Build Album", ...
  virtual void show(const QString& key) = 0;              ///< "Build Album*Year"
};

} // namespace hearthbook
