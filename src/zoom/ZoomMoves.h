#pragma once

#include "Recordset.h"

#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

// How one walks through the photos of the zoom view. Its record set stands on the record behind
// the photo shown, or at its end; each of these puts it on the photo to be shown next.

/// Leaves the photo that is being shown for the record behind it.
void moveBehindShown(Recordset& photos);

/// True where a photo follows.
bool canGoNext(const Recordset& photos);

/// Stands on the photo before the one shown; false, and nothing moved, where that is the first.
bool goPrevious(Recordset& photos);

/// Stands on the photo shown itself.
void goBackToShown(Recordset& photos);

/// Stands on the photo behind the one shown; at the end, on the first one, and false.
bool goNextAround(Recordset& photos);

/// Reads the photos again and stands on the one shown; where that is gone, on the one that came
/// behind it, else on what has its place now. False where no photo is left.
bool readAgain(Recordset& photos, const std::string& shownId);

/// The ids of the photos that will probably be shown next: the one behind the photo shown, the
/// one before it, the one after the next. Behind the last comes the first.
std::vector<std::string> slideNeighbourIds(const Recordset& photos);

/// "17 Of 120", while the set stands on the photo itself.
std::string positionLabel(const Recordset& photos);
/// The same, while it stands behind the photo.
std::string shownLabel(const Recordset& photos);

} // namespace hearthbook
