#pragma once

#include "ApplicationFolder.h"
#include "ExportPages.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook {

// The folder into which an album goes, and what lies in it before.

/// "\export\template", from which each export begins.
std::filesystem::path templateFolder(const ApplicationFolder& folder);

/// True if the template folder holds any file.
bool hasTemplate(const ApplicationFolder& folder);

/// The folder of that name in `base`, in the spelling that is there.
std::filesystem::path exportFolder(const std::filesystem::path& base, const std::string& name);

/// True where an export would write into the album or the program: into the application folder
/// outside of its folder for exports, into the template, or into a folder that holds all of them.
bool belongsToProgram(const ApplicationFolder& folder, const std::filesystem::path& target);

/// What a replacing deletes although no export of this album, which has that number, has written
/// it; empty where it can go ahead.
std::vector<std::string> strangersIn(const std::filesystem::path& target,
                                     const std::filesystem::path& exportTemplate,
                                     const ExportNames& names, std::int64_t albumId);

/// Deletes an earlier export: the folders html, data and audio and all files beside them. Other
/// folders stay, and a file that must not be written to stops it before anything is deleted.
void clearExport(const std::filesystem::path& target);

} // namespace hearthbook
