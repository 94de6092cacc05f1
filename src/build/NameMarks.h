#pragma once

#include "NamesInPhoto.h"
#include "Recordset.h"
#include "Twips.h"

#include <cstdint>
#include <vector>

namespace hearthbook {

/// True if a name may be put into the photo: one is chosen, or there are 50 already. So many
/// names do not stop the next one.
bool mayPutIn(bool isPersonChosen, std::size_t namesInPhoto);

// What happens to the row on which `photos` stands.

/// Writes the names without storing them: the row is stored at the next move.
void writeNames(Recordset& photos, const std::vector<NameEntry>& names);

/// Stores the names that are left, and the photo without the marker of the one taken out.
void takeNameOut(Recordset& photos, const std::vector<NameEntry>& left, std::int64_t id);

/// Stores the person's marker at this place of the photo, wherever it was.
void markName(Recordset& photos, std::int64_t id, TwipsPoint position);

// Where markers stand: positions count from the top-left corner of the shown picture.

/// The picture's nearest point to one of the stage.
TwipsPoint pointOnImage(TwipsRect image, TwipsPoint onStage);

/// The marker's place on the stage: its tip points at the position.
TwipsRect markerRect(TwipsRect image, TwipsPoint position);

} // namespace hearthbook
