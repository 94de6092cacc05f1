#pragma once

#include "Album.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

// Sub-albums as rows: SubAlbums holds their names, SubAlbumPhotos who is in them. The record set
// of the members stands on one sub-album at a time.

inline constexpr const char* byIndex = " ORDER BY SubAlbumPhotos.index";
inline constexpr std::size_t longestSubAlbumName = 20; ///< where a new one is named

/// The members of a sub-album with what is known of their photos, in the order of the clause.
std::string stripQuery(std::string_view albumId, std::string_view sortClause = byIndex);

/// The choices of the box that arranges, behind its title.
inline constexpr const char* autoArrangeTitle = "Select Auto Arrange:";
inline constexpr const char* manually = "Manually";
inline constexpr const char* arrangements[] = {"By Year", "By Event", "By Place", "By scan order",
                                               manually};
/// The order that a choice stands for; nothing for those that sort nothing.
std::optional<std::string_view> arrangeClause(std::string_view choice);

/// Stands rsSubAlbums on the sub-album; false, and at its end, where there is none.
bool findSubAlbum(Recordset& rsSubAlbums, std::string_view albumId);

/// Adds a sub-album and stands rsSubAlbums on the first of that name. Returns the new one's
/// number.
std::int64_t createSubAlbum(Recordset& rsSubAlbums, const std::string& name);

/// Its rows and those of its members as one transaction, its sound into the trash. The photos stay.
void deleteSubAlbum(Album& album, const std::string& albumId);

/// True if the sub-album has a background sound.
bool hasAlbumSound(const Album& album, const std::string& albumId);

/// Puts a photo behind the others; false where it is in the sub-album already.
bool addMember(Recordset& members, std::string_view albumId, const std::string& photoId);
/// The same for many, as one transaction. Photos that are there already are left out.
void addMembers(Recordset& members, std::string_view albumId,
                const std::vector<std::string>& photoIds);
/// Takes a photo out; those behind it keep their numbers.
void removeMember(Recordset& members, std::string_view albumId, std::string_view photoId);

/// The photos that go from a result into a sub-album: the selected ones in their order, which
/// the selection then has too, or all where none is selected.
std::vector<std::string> photosOfResult(PublicVar& vars);

} // namespace hearthbook
