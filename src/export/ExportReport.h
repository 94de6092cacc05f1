#pragma once

#include "AlbumExport.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook {

// What the family reads of an export.

/// "3 of 12 (now saving file:00004.jpg)".
std::string savingCaption(std::int64_t number, std::int64_t count, const std::string& file);

/// Before files go that no export of this album has written.
std::string deletionQuestion(const std::filesystem::path& folder,
                             const std::vector<std::string>& names);

/// The photos that are not in the export as they should be; empty where all are.
std::string troubleReport(const ExportOutcome& outcome);

/// Tells where the album is now and asks whether to view it.
std::string closingQuestion(const ExportOutcome& outcome);

} // namespace hearthbook
