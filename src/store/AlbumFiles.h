#pragma once

namespace hearthbook {

// The databases, by the names that the program's texts use; ApplicationFolder::path() makes
// paths of them.

inline constexpr const char* albumFile = "\\Data\\Photo_Album.mdb";
inline constexpr const char* backupFile = "\\Backup\\Photo_Album.mdb";
inline constexpr const char* helpFile = "\\Data\\Help.mdb";

} // namespace hearthbook
