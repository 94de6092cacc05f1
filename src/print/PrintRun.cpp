#include "PrintRun.h"

#include "Awaited.h"
#include "PrintPixels.h"
#include "PrinterThread.h"
#include "Printers.h"
#include "SafeFile.h"
#include "SheetPdf.h"
#include "UserActs.h"
#include "WorkPool.h"

#include <future>
#include <memory>
#include <ostream>
#include <utility>
#include <vector>

namespace hearthbook {

namespace {

/// What other threads work on: it stays whole where nobody waits for them any more.
struct PrintWork {
  PrintOrder order;
  std::vector<Picture> pictures;
  std::string pdf;
};

std::vector<std::future<PrintedPixels>> decodeAll(WorkPool& pool, const PrintOrder& order) {
  std::vector<std::future<PrintedPixels>> pictures;
  for (const PaintOperation& operation : order.sheet.operations)
    if (const auto* picture = std::get_if<SheetPicture>(&operation))
      pictures.push_back(
          pool.run([picture = *picture,
                    settings = order.settings] { return pixelsForPrint(picture, settings); },
                   wakeWindow, true));
  return pictures;
}

/// A printer makes its copies itself; in a file each is a page.
void paint(PrintWork& work) {
  const int pages = work.order.printer.empty() ? work.order.settings.copies : 1;
  work.pdf = sheetAsPdf(work.order.sheet, work.pictures, pages, work.order.title);
}

void deliver(const PrintWork& work) {
  const PrintOrder& order = work.order;
  if (order.printer.empty())
    replaceFile(order.file, [&](std::ostream& out) { out << work.pdf; });
  else
    printPdf(order.printer, order.title, order.settings, work.pdf);
}

/// False where it is not wanted any more before it has come.
template <class Result>
bool hasCome(const std::future<Result>& work, const std::function<bool()>& isWanted) {
  letUserActUntil([&] { return !isWanted() || isReady(work); });
  return isWanted();
}

/// True where all of them have come.
bool takePictures(std::vector<std::future<PrintedPixels>> pictures, PrintWork& work,
                  PrintOutcome& outcome, const PrintWatch& watch) {
  for (auto& picture : pictures) {
    if (!hasCome(picture, watch.isWanted))
      return false;
    PrintedPixels printed = picture.get();
    outcome.standIns += printed.isStandIn ? 1 : 0;
    work.pictures.push_back(std::move(printed.pixels));
    watch.tell(PrintStep::PictureReady, work.pictures.size());
  }
  return true;
}

} // namespace

PrintOutcome runPrint(WorkPool& pool, PrinterThread& printer, const PrintOrder& order,
                      const PrintWatch& watch) {
  PrintOutcome outcome;
  const auto work = std::make_shared<PrintWork>(PrintWork{order, {}, {}});
  watch.tell(PrintStep::Begun, 0);
  if (!takePictures(decodeAll(pool, order), *work, outcome, watch))
    return outcome;
  auto painting = pool.run([work] { paint(*work); }, wakeWindow, true);
  if (!hasCome(painting, watch.isWanted))
    return outcome;
  painting.get();
  watch.tell(PrintStep::Painted, work->pictures.size());
  auto delivery = printer.work().run([work] { deliver(*work); }, wakeWindow);
  if (!hasCome(delivery, watch.isWanted))
    return outcome;
  delivery.get();
  watch.tell(PrintStep::Delivered, work->pictures.size());
  outcome.isDone = true;
  return outcome;
}

} // namespace hearthbook
