#pragma once

#include "PrintSettings.h"
#include "PrintSheet.h"
#include "PrintSteps.h"

#include <filesystem>
#include <functional>
#include <string>

namespace hearthbook {

class PrinterThread;
class WorkPool;

/// A sheet on its way to a printer, or into a file.
struct PrintOrder {
  PrintSheet sheet;
  PrintSettings settings;
  std::string title;
  std::string printer;        ///< empty: into the file
  std::filesystem::path file; ///< of the PDF
};

/// Who waits for a page.
struct PrintWatch {
  std::function<void(PrintStep step, std::size_t pictures)> tell;
  std::function<bool()> isWanted; ///< false ends the waiting
};

struct PrintOutcome {
  bool isDone = false;      ///< false: it was not wanted any more
  std::size_t standIns = 0; ///< photos that could not be read, printed as the screen shows them
};

/// Prints: pictures are decoded on the pool, which paints the sheet too; on the printer's thread
/// it is handed over. The user may act meanwhile. Throws where it fails.
PrintOutcome runPrint(WorkPool& pool, PrinterThread& printer, const PrintOrder& order,
                      const PrintWatch& watch);

} // namespace hearthbook
