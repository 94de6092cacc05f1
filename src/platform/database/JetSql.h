#pragma once

#include <string>
#include <string_view>

namespace hearthbook {

/// Words a statement as SQLite wants it. Works on tokens, so that quoted texts and names are
/// never touched: quotes reserved words used as names behind a dot (`SubAlbumPhotos.Index`),
/// drops the table before SET targets, drops the star of `DELETE *`, and brackets long chains
/// of OR, whose depth SQLite limits. A statement that is wrong stays wrong.
std::string toSqlite(std::string_view statement);

} // namespace hearthbook
