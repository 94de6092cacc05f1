#pragma once

#include "ExportPages.h"

#include <string_view>

namespace hearthbook {

/// True if a browser would take a part of the text for markup: "<b>", "</", "<!--", "&amp;",
/// "&copy".
bool looksLikeMarkup(std::string_view text);
/// The same for what the side page tells.
bool looksLikeMarkup(const SidePage& page, const NameOfPerson& nameOf);

} // namespace hearthbook
