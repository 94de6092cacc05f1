#include "MUUEncode.h"

#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <istream>
#include <ostream>
#include <string>

namespace hearthbook {

namespace {

constexpr std::size_t bytesOnLine = 45;
constexpr std::size_t charactersOnLine = 1 + bytesOnLine / 3 * 4 + 2;
constexpr std::int64_t linesBetweenYields = 100;
constexpr unsigned char filler = ' ';

using DataLine = std::array<unsigned char, bytesOnLine>;

/// A value of 0 to 63 as its character, a blank as a backquote.
constexpr std::array<char, 64> uuCharacters = [] {
  std::array<char, 64> characters{};
  for (std::size_t value = 0; value < characters.size(); ++value)
    characters[value] = value == 0 ? '`' : static_cast<char>(value + ' ');
  return characters;
}();

char* encodeGroup(const unsigned char* group, char* to) {
  *to++ = uuCharacters[group[0] >> 2];
  *to++ = uuCharacters[((group[0] & 3) << 4) | (group[1] >> 4)];
  *to++ = uuCharacters[((group[1] & 15) << 2) | (group[2] >> 6)];
  *to++ = uuCharacters[group[2] & 63];
  return to;
}

/// Writes the line of so many bytes, behind which the filler stands.
char* encodeLine(const DataLine& line, std::size_t bytes, char* to) {
  *to++ = uuCharacters[bytes];
  for (std::size_t at = 0; at < bytes; at += 3)
    to = encodeGroup(&line[at], to);
  *to++ = '\r';
  *to++ = '\n';
  return to;
}

void readLine(std::istream& in, DataLine& line, std::size_t bytes) {
  in.read(reinterpret_cast<char*>(line.data()), static_cast<std::streamsize>(bytes));
  if (static_cast<std::size_t>(in.gcount()) != bytes)
    throw RunTimeError("The file ends earlier than it should.");
}

/// The text of some lines, handed on together.
class LinesAhead {
public:
  explicit LinesAhead(std::ostream& out)
      : out_(out), text_(charactersOnLine * linesBetweenYields, '\0'), end_(text_.data()) {}

  void add(const DataLine& line, std::size_t bytes) { end_ = encodeLine(line, bytes, end_); }

  void handOn() {
    out_.write(text_.data(), end_ - text_.data());
    end_ = text_.data();
  }

private:
  std::ostream& out_;
  std::string text_;
  char* end_;
};

bool encodeLines(std::istream& in, std::uintmax_t bytes, std::ostream& out,
                 const UuProgress& progress) {
  const std::int64_t lines = uuLines(bytes);
  LinesAhead ahead(out);
  DataLine line{};
  for (std::int64_t i = 1; i <= lines; ++i) {
    if (progress.atLine)
      progress.atLine(i);
    const std::size_t onLine = i == lines ? bytes % bytesOnLine : bytesOnLine;
    readLine(in, line, onLine);
    if (i == lines)
      std::fill(line.begin() + static_cast<std::ptrdiff_t>(onLine), line.end(), filler);
    ahead.add(line, onLine);
    if (i % linesBetweenYields != 0)
      continue;
    ahead.handOn();
    if (progress.yield && !progress.yield())
      return false;
  }
  ahead.handOn();
  return true;
}

} // namespace

std::int64_t uuLines(std::uintmax_t bytes) {
  return static_cast<std::int64_t>(bytes / bytesOnLine) + 1;
}

bool MUUEncode(std::istream& in, std::uintmax_t bytes, std::string_view name, std::ostream& out,
               const UuProgress& progress) {
  if (progress.begun)
    progress.begun(uuLines(bytes));
  out << "begin 664 " << name << "\r\n";
  if (!encodeLines(in, bytes, out, progress))
    return false;
  out << "`\r\nend\r\n";
  if (!out)
    throw RunTimeError("The attachment " + std::string(name) + " cannot be written.");
  return true;
}

} // namespace hearthbook
