#include "PrintRun.h"

#include "Awaited.h"
#include "PrintPixels.h"
#include "Printers.h"
#include "SafeFile.h"
#include "SheetPdf.h"
#include "WorkPool.h"

#include <future>
#include <ostream>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

std::vector<std::future<Picture>> decodeAll(WorkPool& pool, const PrintOrder& order) {
  std::vector<std::future<Picture>> pictures;
  for (const PaintOperation& operation : order.sheet.operations)
    if (const auto* picture = std::get_if<SheetPicture>(&operation))
      pictures.push_back(
          pool.run([picture = *picture,
                    settings = order.settings] { return pixelsForPrint(picture, settings); },
                   {}, true));
  return pictures;
}

/// A printer makes its copies itself; in a file each is a page.
std::string pdfOf(const PrintOrder& order, const std::vector<Picture>& pictures) {
  const int pages = order.printer.empty() ? order.settings.copies : 1;
  return sheetAsPdf(order.sheet, pictures, pages, order.title);
}

void deliver(const PrintOrder& order, const std::string& pdf) {
  if (order.printer.empty())
    replaceFile(order.file, [&](std::ostream& out) { out << pdf; });
  else
    printPdf(order.printer, order.title, order.settings, pdf);
}

} // namespace

void runPrint(WorkPool& pool, const PrintOrder& order,
              const std::function<void(PrintStep step, std::size_t pictures)>& tell) {
  tell(PrintStep::Begun, 0);
  std::vector<Picture> pictures;
  for (std::future<Picture>& work : decodeAll(pool, order)) {
    pictures.push_back(awaited(std::move(work)));
    tell(PrintStep::PictureReady, pictures.size());
  }
  const std::string pdf = awaited(pool.run([&] { return pdfOf(order, pictures); }, {}, true));
  tell(PrintStep::Painted, pictures.size());
  awaited(pool.run([&] { deliver(order, pdf); }, {}, true));
  tell(PrintStep::Delivered, pictures.size());
}

} // namespace hearthbook
