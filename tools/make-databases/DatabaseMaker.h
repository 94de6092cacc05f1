#pragma once

#include "HelpRows.h"

#include <filesystem>
#include <vector>

namespace hearthbook {

/// Makes the databases of a first start from the schema files. A file that is there is never
/// touched: then they return false. Throw RunTimeError, and leave no half-made file.
bool makeAlbumDatabase(const std::filesystem::path& target,
                       const std::filesystem::path& schemaFolder);
bool makeHelpDatabase(const std::filesystem::path& target,
                      const std::filesystem::path& schemaFolder, const std::vector<HelpRow>& rows);

} // namespace hearthbook
