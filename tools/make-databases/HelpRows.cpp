#include "HelpRows.h"

#include "RunTimeError.h"

#include <fstream>

namespace hearthbook {
namespace {

bool isKey(const std::string& line) {
  return line.size() > 4 && line.front() == '[' && line.back() == ']' &&
         line.find('*') != std::string::npos;
}

[[noreturn]] void refuse(const std::string& what, int lineNumber) {
  throw RunTimeError("Help rows, line " + std::to_string(lineNumber) + ": " + what + ".");
}

void requireText(const std::vector<HelpRow>& rows, int lineNumber) {
  if (!rows.empty() && rows.back().text.empty())
    refuse("\"" + rows.back().id + "\" has no text", lineNumber);
}

void addLine(HelpRow& row, const std::string& line) {
  row.text += (row.text.empty() ? "" : "\n") + line;
}

} // namespace

std::vector<HelpRow> readHelpRows(std::istream& lines) {
  std::vector<HelpRow> rows;
  int number = 0;
  bool inBlock = false;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.empty()) {
      inBlock = false;
    } else if (!inBlock && isKey(line)) {
      requireText(rows, number);
      rows.push_back({line.substr(1, line.size() - 2), {}});
      inBlock = true;
    } else if (inBlock) {
      addLine(rows.back(), line);
    } else {
      refuse("a text without a key", number);
    }
  }
  requireText(rows, number);
  return rows;
}

std::vector<HelpRow> readHelpRows(const std::filesystem::path& file) {
  std::ifstream lines(file);
  if (!lines)
    throw RunTimeError("Cannot read \"" + file.string() + "\".");
  return readHelpRows(lines);
}

} // namespace hearthbook
