#include "TextFunctions.h"

#include "TextOrder.h"

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string_view>

namespace hearthbook {

namespace {

int collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return compareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                     {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

std::string_view textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)))
              : std::string_view();
}

void deletePattern(void* pattern) { delete static_cast<LikePattern*>(pattern); }

std::optional<char32_t> escapeOf(int count, sqlite3_value** values) {
  if (count < 3 || textOf(values[2]).size() != 1)
    return std::nullopt;
  return static_cast<unsigned char>(textOf(values[2])[0]);
}

/// `text LIKE pattern [ESCAPE c]` arrives as like(pattern, text[, c]). The database keeps the
/// pattern that was made ready for the other rows.
void like(sqlite3_context* context, int count, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL)
    return sqlite3_result_null(context);
  const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
  if (kept)
    return sqlite3_result_int(context, kept->matches(textOf(values[1])));
  auto made = std::make_unique<LikePattern>(textOf(values[0]), escapeOf(count, values));
  sqlite3_result_int(context, made->matches(textOf(values[1])));
  sqlite3_set_auxdata(context, 0, made.release(), deletePattern);
}

} // namespace

void registerTextFunctions(sqlite3* database) {
  constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  sqlite3_create_collation(database, textCollation, SQLITE_UTF8, nullptr, collate);
  for (const int arguments : {2, 3})
    sqlite3_create_function(database, "like", arguments, flags, nullptr, like, nullptr, nullptr);
}

} // namespace hearthbook
