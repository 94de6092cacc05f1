#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// How large type is on paper, in twips.
struct PrintType {
  std::function<double(const std::string& text)> widthOf;
  double lineHeight = 0;
};

/// The text in lines that are no wider than `width`, broken at blanks, or within a word where that
/// is wider than a line by itself. At most `mostLines` of them: what is left over is told by "…"
/// at the end of the last one.
std::vector<std::string> textLines(std::string_view text, double width, int mostLines,
                                   const PrintType& type);

} // namespace hearthbook
