#pragma once

#include "Picture.h"

#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook::test {

/// The pages of a PDF as pdftoppm sees them, with so many dots to the inch.
std::vector<Picture> pdfPages(const std::filesystem::path& file, int dotsPerInch);

/// The words in a PDF, as pdftotext reads them.
std::string pdfText(const std::filesystem::path& file);

} // namespace hearthbook::test
