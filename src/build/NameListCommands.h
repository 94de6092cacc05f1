#pragma once

namespace hearthbook {

class DataCombo;
class Recordset;
struct NameListWords;

// "Add" and "Delete" beside a drop-down of places or events.

/// Asks for a name, stores it in `list` and chooses it in the drop-down.
void addToNameList(const NameListWords& words, Recordset& list, DataCombo& dropDown);

/// Asks, and takes the name chosen in the drop-down out of `list` and of all photos of the album;
/// `photos` are those that are open and show it.
void deleteFromNameList(const NameListWords& words, Recordset& photos, Recordset& list,
                        DataCombo& dropDown);

} // namespace hearthbook
