#pragma once

struct sqlite3;

namespace hearthbook {

/// The collation to declare for columns that hold names and other texts: the user's order,
/// without regard to case. Not for a column with an index: other programs could then not write
/// to the file, and a new release of the order's rules would disorder the index.
inline constexpr const char* textCollation = "HEARTHBOOK_TEXT";

/// Gives a database the program's order of text and its LIKE.
void registerTextFunctions(sqlite3* database);

} // namespace hearthbook
