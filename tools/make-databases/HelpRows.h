#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace hearthbook {

/// One text of the hover help.
struct HelpRow {
  std::string id;   ///< "Build Album*Add Event"
  std::string text; ///< one line or several

  bool operator==(const HelpRow&) const = default;
};

/// Reads blocks of a line "[Screen*Item]" and the lines of its text, an empty line between.
/// Throws RunTimeError, with the line's number, where a text has no key or a key has no text.
std::vector<HelpRow> readHelpRows(std::istream& lines);
std::vector<HelpRow> readHelpRows(const std::filesystem::path& file);

} // namespace hearthbook
