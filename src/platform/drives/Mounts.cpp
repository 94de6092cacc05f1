#include "Mounts.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

namespace hearthbook {
namespace {

bool isOctal(char c) { return c >= '0' && c <= '7'; }

/// The kernel writes blanks, tabs, line ends and backslashes as "\040".
std::string unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool escape = text[at] == '\\' && at + 3 < text.size() && isOctal(text[at + 1]) &&
                        isOctal(text[at + 2]) && isOctal(text[at + 3]);
    if (!escape) {
      plain += text[at];
      continue;
    }
    const int code = (text[at + 1] - '0') * 64 + (text[at + 2] - '0') * 8 + (text[at + 3] - '0');
    plain += static_cast<char>(code);
    at += 3;
  }
  return plain;
}

/// "36 35 98:0 / /mnt/disc rw,noatime master:1 - iso9660 /dev/sr0 ro": the fields in front of
/// the dash vary in number.
std::optional<Mount> parsedLine(const std::string& line) {
  std::istringstream text(line);
  const std::vector<std::string> fields{std::istream_iterator<std::string>(text), {}};
  std::size_t dash = 6;
  while (dash < fields.size() && fields[dash] != "-")
    ++dash;
  if (dash + 2 >= fields.size())
    return std::nullopt;
  return Mount{.point = unescaped(fields[4]),
               .type = fields[dash + 1],
               .device = unescaped(fields[dash + 2])};
}

} // namespace

std::vector<Mount> readMounts(const std::filesystem::path& mountinfo) {
  std::vector<Mount> mounts;
  std::ifstream lines(mountinfo);
  for (std::string line; std::getline(lines, line);) {
    if (const auto mount = parsedLine(line))
      mounts.push_back(*mount);
  }
  return mounts;
}

} // namespace hearthbook
