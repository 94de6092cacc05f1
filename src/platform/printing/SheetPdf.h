#pragma once

#include "PrintSheet.h"

#include <string>
#include <vector>

namespace hearthbook {

/// The sheet as a PDF, as many times as `copies`, which share their pictures' pixels. `pixels` are
/// those of its pictures, in their order. Runs on any thread.
std::string sheetAsPdf(const PrintSheet& sheet, const std::vector<Picture>& pixels, int copies,
                       const std::string& title);

} // namespace hearthbook
