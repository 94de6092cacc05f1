#pragma once

#include <QFont>

#include <string>

namespace hearthbook {

/// The type on paper, whose pixel is a twip.
QFont sheetFont();

/// How wide a text is on paper, in twips.
double sheetWidthOf(const std::string& text);

/// The height of its lines.
double sheetLineHeight();

} // namespace hearthbook
