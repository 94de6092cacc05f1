#include "SheetPdf.h"

#include "PictureImage.h"
#include "RunTimeError.h"
#include "SheetPainter.h"
#include "Text.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace hearthbook {

namespace {

constexpr double twipsPerPoint = 20;

/// Exactly as large as the sheet, whatever papers there are, and free to its edges.
QPageLayout layoutOf(TwipsSize paper) {
  const QSizeF points(paper.width / twipsPerPoint, paper.height / twipsPerPoint);
  const QPageSize size(points, QPageSize::Point, {}, QPageSize::ExactMatch);
  return {size, QPageLayout::Portrait, QMarginsF(), QPageLayout::Point};
}

void setUp(QPdfWriter& writer, TwipsSize paper, const std::string& title) {
  writer.setPageLayout(layoutOf(paper));
  writer.setResolution(twipsPerInch);
  writer.setTitle(toQString(title));
  writer.setCreator(QStringLiteral("Hearthbook"));
}

/// One image for all copies: the file then holds its pixels once.
std::vector<QImage> imagesOf(const std::vector<Picture>& pixels) {
  std::vector<QImage> images(pixels.size());
  std::ranges::transform(pixels, images.begin(), toImage);
  return images;
}

} // namespace

std::string sheetAsPdf(const PrintSheet& sheet, const std::vector<Picture>& pixels, int copies,
                       const std::string& title) {
  const std::vector<QImage> images = imagesOf(pixels);
  QBuffer pdf;
  QPdfWriter writer(&pdf);
  setUp(writer, sheet.paper, title);
  QPainter painter;
  if (!pdf.open(QIODevice::WriteOnly) || !painter.begin(&writer))
    throw RunTimeError("The page cannot be painted.");
  for (int copy = 0; copy < copies; ++copy) {
    if (copy > 0)
      writer.newPage();
    paintSheet(painter, sheet, [&](std::size_t picture) { return images.at(picture); });
  }
  painter.end();
  return pdf.data().toStdString();
}

} // namespace hearthbook
