#include "Scanner.h"

namespace hearthbook {

std::string describe(ScanStatus status) {
  switch (status) {
  case ScanStatus::Success:
    return "The page is scanned.";
  case ScanStatus::Cancelled:
    return "The scan was cancelled.";
  case ScanStatus::NoScanner:
    return "No scanner was found.";
  case ScanStatus::CannotOpen:
    return "The scanner cannot be used at the moment.";
  case ScanStatus::NoPaper:
    return "There is no paper in the scanner.";
  case ScanStatus::Jammed:
    return "The paper is stuck in the scanner.";
  case ScanStatus::CoverOpen:
    return "The cover of the scanner is open.";
  case ScanStatus::NotAnswering:
    return "The scanner does not answer.";
  case ScanStatus::NoMemory:
    return "There is not enough memory for the page.";
  case ScanStatus::Failed:
    break;
  }
  return "The scanner has failed.";
}

} // namespace hearthbook
