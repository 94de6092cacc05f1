#include "ReplyBuffer.h"

#include "Ascii.h"
#include "RunTimeError.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr std::size_t codeLength = 3;

std::string_view lastLine(std::string_view text) {
  text.remove_suffix(1);
  const std::size_t before = text.rfind('\n');
  return before == std::string_view::npos ? text : text.substr(before + 1);
}

bool saysThatMoreFollows(std::string_view line) {
  return line.size() > codeLength && line[codeLength] == '-' &&
         std::ranges::all_of(line.substr(0, codeLength), isAsciiDigit);
}

} // namespace

void ReplyBuffer::add(std::string_view bytes) {
  if (text_.size() + bytes.size() > mostBytes)
    throw RunTimeError("The server's answer has no end");
  text_ += bytes;
}

bool ReplyBuffer::isWhole() const {
  return text_.ends_with('\n') && !saysThatMoreFollows(lastLine(text_));
}

std::string ReplyBuffer::take() { return std::exchange(text_, {}); }

} // namespace hearthbook
