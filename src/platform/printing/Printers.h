#pragma once

#include "PrintSettings.h"
#include "Twips.h"

#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

// The printers of the desktop. All of this waits for the printing service and perhaps for the
// network: it is to be called beside the window's thread. What fails throws RunTimeError.

struct Printer {
  std::string name;
  bool isCurrent = false; ///< the user's own choice among them
};

/// In the service's order. Empty where none is set up; throws where no service answers.
std::vector<Printer> listPrinters();

/// The paper that the printer takes when it is told nothing of it, upright; nothing where it does
/// not say.
std::optional<TwipsSize> ownPaperOf(const std::string& printer);

/// Hands a PDF to the printer and returns when the service has all of it.
void printPdf(const std::string& printer, const std::string& title, const PrintSettings& settings,
              const std::string& pdf);

} // namespace hearthbook
