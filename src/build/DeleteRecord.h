#pragma once

#include "Album.h"

namespace hearthbook {

/// Asks, removes the current photo's row alone (its files and its places in sub-albums stay),
/// and opens the editor anew where it stood.
void DeleteRecord(Album& album);

} // namespace hearthbook
