#include "PrintText.h"

#include "Words.h"

#include <algorithm>

namespace hearthbook {

namespace {

constexpr const char* more = "…";

bool fits(std::string_view text, const char* behind, double width, const PrintType& type) {
  return type.widthOf(std::string(text) + behind) <= width;
}

/// How many bytes of the beginning fit, no character cut in two. Longer texts are wider: so the
/// place is found by halves.
std::size_t fittingBytes(std::string_view text, const char* behind, double width,
                         const PrintType& type) {
  std::size_t fitting = 0;
  std::size_t tooLong = text.size() + 1;
  while (fitting + 1 < tooLong) {
    const std::size_t middle = (fitting + tooLong) / 2;
    (fits(beginningOf(text, middle), behind, width, type) ? fitting : tooLong) = middle;
  }
  return beginningOf(text, fitting).size();
}

std::size_t firstCharacter(std::string_view text) {
  std::size_t bytes = 1;
  while (bytes < text.size() && beginningOf(text, bytes).empty())
    ++bytes;
  return bytes;
}

/// The bytes of the first line: up to its last blank, or all that fits of a long word, and always
/// something.
std::size_t lineLength(std::string_view text, double width, const PrintType& type) {
  const std::size_t most = fittingBytes(text, "", width, type);
  if (most == text.size())
    return most;
  const std::size_t blank = text.substr(0, most + 1).rfind(' ');
  if (blank != std::string_view::npos && blank > 0)
    return blank;
  return std::max(most, firstCharacter(text));
}

std::string shortened(std::string_view text, double width, const PrintType& type) {
  if (fits(text, "", width, type))
    return std::string(text);
  const std::size_t most = fittingBytes(text, more, width, type);
  return std::string(withoutBlanks(text.substr(0, most))) + more;
}

/// A line end within a name is a blank on paper.
std::string onOneLine(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  return line;
}

} // namespace

std::vector<std::string> textLines(std::string_view whole, double width, int mostLines,
                                   const PrintType& type) {
  std::vector<std::string> lines;
  const std::string line = onOneLine(whole);
  std::string_view text = withoutBlanks(line);
  while (!text.empty() && static_cast<int>(lines.size()) + 1 < mostLines) {
    const std::size_t length = lineLength(text, width, type);
    lines.emplace_back(withoutBlanks(text.substr(0, length)));
    text = withoutBlanks(text.substr(length));
  }
  if (!text.empty())
    lines.push_back(shortened(text, width, type));
  return lines;
}

} // namespace hearthbook
