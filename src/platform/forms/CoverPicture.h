#pragma once

#include "PictureLoader.h"

#include <QWidget>

#include <filesystem>

namespace hearthbook {

/// A picture that covers the whole widget, its middle in the middle, whatever the widget's
/// proportions. Its pixels follow the first paint; until then the widget has one colour.
class CoverPicture : public QWidget {
  Q_OBJECT
public:
  explicit CoverPicture(QWidget* parent = nullptr);

  void showPicture(PictureLoader& loader, std::filesystem::path file);
  [[nodiscard]] bool hasPicture() const { return !picture_.isNull(); }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void ask();
  [[nodiscard]] PixelSize coveringSize() const;

  PictureLoader* loader_ = nullptr;
  std::filesystem::path file_;
  PixelSize fileSize_;
  PixelSize asked_;
  PictureLoader::Ticket ticket_;
  Picture picture_;
};

} // namespace hearthbook
