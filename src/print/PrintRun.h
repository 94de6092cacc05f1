#pragma once

#include "PrintSettings.h"
#include "PrintSheet.h"
#include "PrintSteps.h"

#include <filesystem>
#include <functional>
#include <string>

namespace hearthbook {

class WorkPool;

/// A sheet on its way to a printer, or into a file.
struct PrintOrder {
  PrintSheet sheet;
  PrintSettings settings;
  std::string title;
  std::string printer;        ///< empty: into the file
  std::filesystem::path file; ///< of the PDF
};

/// Prints: pictures are decoded, the sheet painted and handed over beside the window's thread,
/// which lives on meanwhile with the user's commands blocked. Throws where it fails.
void runPrint(WorkPool& pool, const PrintOrder& order,
              const std::function<void(PrintStep step, std::size_t pictures)>& tell);

} // namespace hearthbook
