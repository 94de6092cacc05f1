#pragma once

#include "PrintSettings.h"
#include "PrintSheet.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace hearthbook {

/// The sheet as it will come out of the printer, small, lying on the desk.
class PrintPreview : public QWidget {
  Q_OBJECT
public:
  explicit PrintPreview(QWidget* parent = nullptr);

  void showSheet(PrintSheet sheet, ColorMode colorMode);
  [[nodiscard]] const PrintSheet& sheet() const { return sheet_; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  [[nodiscard]] QRectF sheetRect() const;
  void shrinkImages(double scale);

  PrintSheet sheet_;
  std::vector<QImage> images_; ///< of the sheet's pictures
  std::vector<QImage> shown_;  ///< the same, as small as they are shown
  double shownScale_ = 0;      ///< for which these are, 0 where they are not made yet
};

} // namespace hearthbook
