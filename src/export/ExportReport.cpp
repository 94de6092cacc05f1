#include "ExportReport.h"

namespace hearthbook {

namespace {

/// All of them: a box that gets too high for the screen lets them scroll.
std::string linesOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines)
    text += "\n" + line;
  return text;
}

std::string markupReport(std::int64_t photos) {
  const std::string who =
      photos == 1 ? "1 photo holds text" : std::to_string(photos) + " photos hold text";
  return who + " that a browser takes for markup, such as <b>. It stands in the pages as it was "
               "typed, and may not be shown as it was meant.";
}

} // namespace

std::string savingCaption(std::int64_t number, std::int64_t count, const std::string& file) {
  return std::to_string(number) + " of " + std::to_string(count) + " (now saving file:" + file +
         ")";
}

std::string deletionQuestion(const std::filesystem::path& folder,
                             const std::vector<std::string>& names) {
  return "The folder '" + folder.string() +
         "' holds what was not written by an export of this sub-album:" + linesOf(names) +
         "\n\nWould you like to delete that and export the sub-album into this folder?";
}

std::string troubleReport(const ExportOutcome& outcome) {
  std::vector<std::string> lines;
  for (const auto& trouble : outcome.troubles)
    lines.push_back(trouble.file + " " + trouble.what);
  std::string report;
  if (!lines.empty())
    report = "Some photos are not in the export as they should be:" + linesOf(lines);
  if (outcome.markups > 0)
    report += (report.empty() ? "" : "\n\n") + markupReport(outcome.markups);
  return report;
}

std::string closingQuestion(const ExportOutcome& outcome) {
  return "Sub-Album " + outcome.name + " was exported successfully\r\n" +
         "You can copy the content of folder: '" + outcome.folder.string() +
         "' to your CD-W or upload it to the web.\r\n\r\n" +
         "Would you like to view the exported album?";
}

} // namespace hearthbook
