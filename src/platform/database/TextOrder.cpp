#include "TextOrder.h"

#include "Ascii.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdlib>

namespace hearthbook {

namespace {

constexpr char32_t anyRun = 0x110000;
constexpr char32_t anyOne = 0x110001;

int length(std::string_view text) { return static_cast<int>(text.size()); }

const UCollator* openUsersOrder() {
  const std::string locale =
      textLocale(std::getenv("LC_ALL"), std::getenv("LC_COLLATE"), std::getenv("LANG"));
  UErrorCode status = U_ZERO_ERROR;
  UCollator* order = ucol_open(locale.c_str(), &status);
  if (U_FAILURE(status)) {
    status = U_ZERO_ERROR;
    order = ucol_open("", &status);
  }
  ucol_setStrength(order, UCOL_SECONDARY);
  return order;
}

// Reading a collator is safe from any thread; it lives as long as the process.
const UCollator* usersOrder() {
  static const UCollator* const order = openUsersOrder();
  return order;
}

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool isAsciiText(std::string_view text) { return std::all_of(text.begin(), text.end(), isAscii); }

// Every such character counts in every order of text; control characters may be passed over.
bool isPlain(char c) { return (c >= 0x20 && c < 0x7F) || c == '\t' || c == '\n' || c == '\r'; }

std::string composed(std::string_view text) {
  if (isAsciiText(text))
    return std::string(text);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
  const icu::StringPiece piece(text.data(), length(text));
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  nfc->normalizeUTF8(0, piece, sink, nullptr, status);
  return U_SUCCESS(status) ? result : std::string(text);
}

bool isComposed(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
  return nfc->isNormalizedUTF8(icu::StringPiece(text.data(), length(text)), status) ||
         U_FAILURE(status);
}

// The character at `at`, its case folded; `at` goes behind it.
char32_t nextFolded(std::string_view text, int& at) {
  const char first = text[static_cast<std::size_t>(at)];
  if (isAscii(first)) {
    ++at;
    return static_cast<unsigned char>(asciiLower(first));
  }
  UChar32 c = 0;
  U8_NEXT_OR_FFFD(text.data(), at, length(text), c);
  return static_cast<char32_t>(u_foldCase(c, U_FOLD_CASE_DEFAULT));
}

// From `at` on, the first place where the character may stand. Characters beyond ASCII may fold
// to one within it.
int whereItMayStand(char32_t wanted, std::string_view text, int at) {
  if (wanted >= 0x80)
    return at;
  const char lower = static_cast<char>(wanted);
  while (at < length(text)) {
    const char c = text[static_cast<std::size_t>(at)];
    if (!isAscii(c) || asciiLower(c) == lower)
      return at;
    ++at;
  }
  return at;
}

// Walks both at once and remembers the last run of anything, to which it falls back.
bool matchesFolded(const std::vector<char32_t>& pattern, std::string_view text) {
  std::size_t p = 0;
  std::size_t behindRun = 0;
  int at = 0;
  int runFrom = -1;
  while (at < length(text)) {
    if (p < pattern.size() && pattern[p] == anyRun) {
      behindRun = ++p;
      if (p == pattern.size())
        return true;
      runFrom = at = whereItMayStand(pattern[p], text, at);
      continue;
    }
    int behind = at;
    const char32_t c = nextFolded(text, behind);
    if (p < pattern.size() && (pattern[p] == anyOne || pattern[p] == c)) {
      ++p;
      at = behind;
      continue;
    }
    if (runFrom < 0)
      return false;
    p = behindRun;
    nextFolded(text, runFrom);
    runFrom = at = whereItMayStand(pattern[p], text, runFrom);
  }
  return std::all_of(pattern.begin() + static_cast<std::ptrdiff_t>(p), pattern.end(),
                     [](char32_t c) { return c == anyRun; });
}

} // namespace

std::string textLocale(const char* lcAll, const char* lcCollate, const char* lang) {
  std::string locale;
  for (const char* setting : {lcAll, lcCollate, lang})
    if (locale.empty() && setting)
      locale = setting;
  locale = locale.substr(0, locale.find_first_of(".@"));
  const bool none = locale.empty() || locale == "C" || locale == "POSIX";
  return none ? "en_US" : locale;
}

int compareText(std::string_view left, std::string_view right) {
  UErrorCode status = U_ZERO_ERROR;
  return ucol_strcollUTF8(usersOrder(), left.data(), length(left), right.data(), length(right),
                          &status);
}

bool sameText(std::string_view left, std::string_view right) {
  const std::size_t shared = std::min(left.size(), right.size());
  std::size_t at = 0;
  while (at < shared && asciiLower(left[at]) == asciiLower(right[at]))
    ++at;
  if (at == left.size() && at == right.size())
    return true;
  const bool leftPlain = at == left.size() || isPlain(left[at]);
  const bool rightPlain = at == right.size() || isPlain(right[at]);
  return !(leftPlain && rightPlain) && compareText(left, right) == 0;
}

std::optional<std::string> foldedPlain(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) {
    if (!isPlain(c))
      return std::nullopt;
    c = asciiLower(c);
  }
  return folded;
}

std::string lowerCase(std::string_view text) {
  icu::UnicodeString wide = icu::UnicodeString::fromUTF8({text.data(), length(text)});
  wide.toLower(icu::Locale::getRoot());
  std::string lowered;
  return wide.toUTF8String(lowered);
}

std::string textSortKey(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString wide = icu::UnicodeString::fromUTF8({text.data(), length(text)});
  std::string key(text.size() * 2 + 16, '\0');
  auto write = [&] {
    return ucol_getSortKey(usersOrder(), wide.getBuffer(), wide.length(),
                           reinterpret_cast<std::uint8_t*>(key.data()),
                           static_cast<int>(key.size()));
  };
  int needed = write();
  if (needed > static_cast<int>(key.size())) {
    key.resize(static_cast<std::size_t>(needed));
    needed = write();
  }
  key.resize(static_cast<std::size_t>(std::max(needed, 1)) - 1);
  return U_SUCCESS(status) ? key : std::string(text);
}

LikePattern::LikePattern(std::string_view pattern, std::optional<char32_t> escape) {
  const std::string text = composed(pattern);
  bool escaped = false;
  for (int at = 0; at < length(text);) {
    const char32_t c = nextFolded(text, at);
    if (!escaped && escape && c == *escape) {
      escaped = true;
      continue;
    }
    if (!escaped && c == U'%')
      pattern_.push_back(anyRun);
    else
      pattern_.push_back(!escaped && c == U'_' ? anyOne : c);
    escaped = false;
  }
}

bool LikePattern::matches(std::string_view text) const {
  if (isAsciiText(text) || isComposed(text))
    return matchesFolded(pattern_, text);
  return matchesFolded(pattern_, composed(text));
}

} // namespace hearthbook
