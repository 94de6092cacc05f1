#pragma once

#include "Picture.h"
#include "Value.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

// What the exported pages hold, as values. Their markup and their names are a promise: discs that
// families burnt years ago have the same.

/// What the exported album is called.
struct ExportNames {
  std::string title;  ///< as the pages show it
  std::string name;   ///< of the folder, and in the texts
  std::string lcname; ///< of the start page, without ".htm"

  bool operator==(const ExportNames&) const = default;
};

/// The names for a sub-album as the list shows it. A name that would leave no folder name is
/// made of the number; one that is too long for a file is cut.
ExportNames exportNames(std::string_view albumName, std::int64_t albumId);

/// The same with another folder name.
ExportNames renamed(ExportNames names, std::string name);

/// One choice of how large and how good the photos become.
struct Optimization {
  const char* text;
  std::optional<PixelSize> limits; ///< nothing: the photo's file is copied
  int factor;
};
std::span<const Optimization> optimizations();

/// The size at which a photo goes out. Only the longer side counts, so that a square photo stays
/// as it is, and one that fits in width may be too high.
PixelSize exportedSize(PixelSize photo, PixelSize limits);

/// The rows of the start page's table: eight thumbnails to the row.
void writeThumbnailTable(std::ostream& out, std::int64_t photos);

/// What the page beside a photo tells of it.
struct SidePage {
  std::int64_t number = 0; ///< of the photo, from 1
  Value year;
  Value event;
  Value place;
  Value namesInPhoto;
  Value namesCords;
  Value description;
  std::string soundExtension; ///< ".wav"; empty where there is no sound

  bool operator==(const SidePage&) const = default;
};
/// The name of the person with that number; nothing where there is none.
using NameOfPerson = std::function<std::optional<std::string>(std::int64_t id)>;

/// "1987", or "----" where it is not known.
std::string yearLine(const SidePage& page);
/// "Wedding in Lake House"; a place without an event begins with its preposition.
std::string eventLine(const SidePage& page);
/// The persons, in the order of their field; somebody who is gone is left out.
std::vector<std::string> namesOf(const SidePage& page, const NameOfPerson& nameOf);

/// Nothing is escaped: what the family wrote goes in as it is stored.
void writeSidePage(std::ostream& out, const SidePage& page, const NameOfPerson& nameOf);

/// "[autorun]" and the start page, for a disc.
void writeAutorun(std::ostream& out, std::string_view name);

namespace tokens {
inline constexpr std::string_view pageCount = "^^numPage^^";
inline constexpr std::string_view thumbnails = "^^varThumbs^^";
inline constexpr std::string_view title = "^^varTitle^^";
inline constexpr std::string_view audio = "^^audio^^";
} // namespace tokens

/// The text with the token replaced wherever it stands.
std::string withToken(std::string_view text, std::string_view token, std::string_view value);

/// The page with a mark in front that tells browsers of its UTF-8, where it needs one.
std::string markedAsUtf8(std::string page);

} // namespace hearthbook
