#include "MUUEncode.h"

#include "RunTimeError.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace hearthbook {

namespace {

constexpr std::size_t bytesOnLine = 45;
constexpr std::size_t charactersOnLine = 1 + bytesOnLine / 3 * 4 + 2;
constexpr std::int64_t linesBetweenYields = 100;
constexpr std::size_t linesAtOnce = 1000; ///< read and written together
constexpr unsigned char filler = ' ';

/// Bits 0 to 5 of each byte as their character, a blank as a backquote. No byte carries over.
constexpr std::uint64_t charactersOf(std::uint64_t values) {
  return values + 0x6060606060606060 - ((values + 0x3F3F3F3F3F3F3F3F) & 0x4040404040404040);
}

constexpr char characterOf(std::size_t value) {
  return static_cast<char>(charactersOf(value) & 0x7F);
}

constexpr std::uint64_t bigEndian(std::uint64_t number) {
  return std::endian::native == std::endian::little ? __builtin_bswap64(number) : number;
}

/// Six bytes as eight characters: halved three times, each half moved to the end of its room. Two
/// bytes more are read, and not used.
void encodeSix(const unsigned char* from, char* to) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, from, sizeof(bits));
  bits = bigEndian(bits) >> 16;
  bits = (bits & 0x0000FFFFFF000000) << 8 | (bits & 0x0000000000FFFFFF);
  bits = (bits & 0x00FFF00000FFF000) << 4 | (bits & 0x00000FFF00000FFF);
  bits = (bits & 0x0FC00FC00FC00FC0) << 2 | (bits & 0x003F003F003F003F);
  bits = bigEndian(charactersOf(bits));
  std::memcpy(to, &bits, sizeof(bits));
}

/// The last three bytes are encoded with the three before them, which come out the same again.
char* encodeFullLine(const unsigned char* from, char* to) {
  constexpr std::size_t whole = bytesOnLine / 6;
  for (std::size_t six = 0; six < whole; ++six)
    encodeSix(from + 6 * six, to + 8 * six);
  encodeSix(from + bytesOnLine - 6, to + (bytesOnLine - 6) / 3 * 4);
  return to + bytesOnLine / 3 * 4;
}

char* encodeGroup(const unsigned char* group, char* to) {
  *to++ = characterOf(group[0] >> 2);
  *to++ = characterOf((group[0] & 3) << 4 | group[1] >> 4);
  *to++ = characterOf((group[1] & 15) << 2 | group[2] >> 6);
  *to++ = characterOf(group[2] & 63);
  return to;
}

char* encodeLastLine(const unsigned char* from, std::size_t bytes, char* to) {
  for (std::size_t at = 0; at < bytes; at += 3)
    to = encodeGroup(from + at, to);
  return to;
}

/// The bytes of a file, many lines of them at once. Behind the last there is filler.
class BytesIn {
public:
  BytesIn(std::istream& in, std::uintmax_t bytes)
      : in_(in), left_(bytes), held_(bytesOnLine * linesAtOnce + sizeof(std::uint64_t)) {}

  const unsigned char* line(std::size_t bytes) {
    if (at_ == end_)
      readOn();
    const unsigned char* line = held_.data() + at_;
    at_ += bytes;
    return line;
  }

private:
  void readOn() {
    at_ = 0;
    end_ = static_cast<std::size_t>(std::min<std::uintmax_t>(left_, bytesOnLine * linesAtOnce));
    in_.read(reinterpret_cast<char*>(held_.data()), static_cast<std::streamsize>(end_));
    if (!in_ || static_cast<std::size_t>(in_.gcount()) != end_)
      throw RunTimeError("The file ends earlier than it should.");
    left_ -= end_;
    std::fill(held_.begin() + static_cast<std::ptrdiff_t>(end_), held_.end(), filler);
  }

  std::istream& in_;
  std::uintmax_t left_;
  std::vector<unsigned char> held_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

/// The lines of the text, handed on many at once.
class LinesOut {
public:
  explicit LinesOut(std::ostream& out)
      : out_(out), held_(charactersOnLine * linesAtOnce), end_(held_.data()) {}

  /// The count of the bytes stands first; it does not count the filler.
  void add(const unsigned char* line, std::size_t bytes) {
    *end_++ = characterOf(bytes);
    end_ = bytes == bytesOnLine ? encodeFullLine(line, end_) : encodeLastLine(line, bytes, end_);
    *end_++ = '\r';
    *end_++ = '\n';
    if (end_ == held_.data() + held_.size())
      handOn();
  }

  void handOn() {
    out_.write(held_.data(), end_ - held_.data());
    end_ = held_.data();
  }

private:
  std::ostream& out_;
  std::vector<char> held_;
  char* end_;
};

bool encodeLines(std::istream& in, std::uintmax_t bytes, std::ostream& out,
                 const UuProgress& progress) {
  const std::int64_t lines = uuLines(bytes);
  BytesIn from(in, bytes);
  LinesOut to(out);
  for (std::int64_t i = 1; i <= lines; ++i) {
    if (progress.atLine)
      progress.atLine(i);
    const std::size_t onLine = i == lines ? bytes % bytesOnLine : bytesOnLine;
    to.add(from.line(onLine), onLine);
    if (i % linesBetweenYields == 0 && progress.yield && !progress.yield())
      return false;
  }
  to.handOn();
  return true;
}

} // namespace

std::int64_t uuLines(std::uintmax_t bytes) {
  return static_cast<std::int64_t>(bytes / bytesOnLine) + 1;
}

bool lastUuLineBeginsWithDot(std::uintmax_t bytes) {
  return characterOf(bytes % bytesOnLine) == '.';
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
