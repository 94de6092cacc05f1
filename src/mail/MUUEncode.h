#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string_view>

namespace hearthbook {

/// What is told of an encoding while it runs. Each may be left out.
struct UuProgress {
  std::function<void(std::int64_t lines)> begun;
  std::function<void(std::int64_t line)> atLine;
  /// After every 100 lines. False ends the work.
  std::function<bool()> yield;
};

/// How many data lines so many bytes make: always one, and an empty last one where they fill whole
/// lines.
std::int64_t uuLines(std::uintmax_t bytes);

/// True where the last data line of so many bytes begins with a dot, which mail servers take off.
bool lastUuLineBeginsWithDot(std::uintmax_t bytes);

/// Writes the `bytes` bytes of `in` as the text of an attachment called `name`, every line ended by
/// CR LF. The last group is filled up with blanks, and the line of one backquote stands before the
/// end even where the last data line is one already. False where `yield` has ended the work.
/// Throws RunTimeError where there are fewer bytes or the text cannot be written.
bool MUUEncode(std::istream& in, std::uintmax_t bytes, std::string_view name, std::ostream& out,
               const UuProgress& progress = {});

} // namespace hearthbook
