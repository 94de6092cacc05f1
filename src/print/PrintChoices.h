#pragma once

#include "PrintSettings.h"

namespace hearthbook {

enum class PrintSize { Original, FitToPage };
enum class PaperSize { Letter, Photo };

/// What decides how a page lies on paper.
struct PrintChoices {
  PaperOrientation orientation = PaperOrientation::Landscape;
  PrintSize size = PrintSize::Original;
  PaperSize paper = PaperSize::Letter;

  bool operator==(const PrintChoices&) const = default;
};

} // namespace hearthbook
