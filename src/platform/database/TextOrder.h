#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// The locale whose order of text holds, told by the environment's LC_ALL, LC_COLLATE and LANG
/// (nullptr where unset): "de_DE.UTF-8" gives "de_DE"; "C", "POSIX" and nothing give "en_US".
std::string textLocale(const char* lcAll, const char* lcCollate, const char* lang);

/// The user's order of text: case does not count, accents do. Negative, zero or positive.
int compareText(std::string_view left, std::string_view right);

/// compareText() == 0, quickly.
bool sameText(std::string_view left, std::string_view right);

/// The text in lower case, if it has plain ASCII characters alone: two such are the same if
/// their folded bytes are. Nothing for other texts.
std::optional<std::string> foldedPlain(std::string_view text);

/// The text in small letters of every alphabet.
std::string lowerCase(std::string_view text);

/// Bytes that compare as the texts do; for sorting many.
std::string textSortKey(std::string_view text);

/// A pattern of LIKE: % stands for any run of characters, _ for one. Case does not count for
/// any alphabet, accents do; composed and decomposed letters are the same.
class LikePattern {
public:
  explicit LikePattern(std::string_view pattern, std::optional<char32_t> escape = std::nullopt);
  [[nodiscard]] bool matches(std::string_view text) const;

private:
  std::vector<char32_t> pattern_; // folded; the wildcards are values beyond Unicode
};

} // namespace hearthbook
