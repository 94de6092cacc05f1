#pragma once

#include "PrintChoices.h"
#include "PrintPage.h"
#include "PrintSheet.h"
#include "PrintText.h"

#include <optional>
#include <string>

namespace hearthbook {

/// Where a page lies: its sheet, upright or not, and the edge that is kept free where the page
/// leaves room for it.
struct PrintPaper {
  TwipsSize sheet;
  double margin = 0;
  std::string media; ///< as the printing service calls it; empty: the printer's own
};

/// The paper for a page. Pages of several photos always go to Letter; `own` is the printer's own
/// paper, upright, for the choice that leaves the paper as it is.
PrintPaper paperFor(const PrintPage& page, const PrintChoices& choices,
                    const std::optional<TwipsSize>& own);

/// True where the printer's own paper decides: the page is of one photo, on Photo Paper, in its
/// original size.
bool leavesPaper(const PrintPage& page, const PrintChoices& choices);

/// By how much a single photo is larger on paper than in its form.
double printScale(SinglePrint::From from, const PrintChoices& choices);

/// The page on its sheet. Texts that would leave the sheet, or run into another photo, are broken
/// into lines and shortened.
PrintSheet layOut(const PrintPage& page, const PrintChoices& choices, const PrintPaper& paper,
                  const PrintType& type);

} // namespace hearthbook
