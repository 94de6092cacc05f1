#pragma once

#include "Album.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace hearthbook {

// The sound of a photo or a sub-album is a file in Audio that bears its owner's name; that it is
// there is all that tells of it.

/// What the sound of a photo is called, without its extension: "00012" for HD00012.
std::string photoAudioName(std::string_view pictureId);
/// What the sound of a sub-album is called: "A7".
std::string albumAudioName(std::int64_t albumId);

/// The last four characters of the file's name: ".wav". What a sound that is copied keeps of it.
std::string soundExtension(const std::filesystem::path& file);

/// The owner's sound, there or not being told by the answer. Of several the first by name counts.
std::optional<std::filesystem::path> attachedAudio(const Album& album, std::string_view name);

/// Copies a file to be the owner's only sound, with the last four characters of its name. What
/// the owner had goes to the trash when the copy is on the disk. Throws RunTimeError.
void attachAudio(const Album& album, std::string_view name, const std::filesystem::path& source);

/// Moves all sounds of the owner to the trash. Throws RunTimeError.
void removeAudio(const Album& album, std::string_view name);

/// Where a recording for the owner is saved: its wave, as that is spelled if it is there.
std::filesystem::path recordingFile(const Album& album, std::string_view name);

/// Moves a sound to the trash if it is there.
void putAwayAudio(const Album& album, const std::filesystem::path& file);

} // namespace hearthbook
