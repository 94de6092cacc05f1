#pragma once

#include "Recordset.h"
#include "SelectionSet.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// A picture as a form knows it: where its pixels come from.
struct PictureSource {
  std::filesystem::path file; ///< the photo, or the not-found picture
  bool found = false;         ///< the photo itself is on the disk

  bool operator==(const PictureSource&) const = default;
};

/// What the forms share while the program runs; nothing of it outlives the process.
struct PublicVar {
  std::string CallerForm;           ///< owner of the working set: "DBeditor", "Search", "Viewer"
  std::filesystem::path ImagePath;  ///< the current photo's file, there or not
  PictureSource ImagePicture;       ///< what is shown for it
  std::int16_t NextPhotoNumber = 0; ///< of the photo being added
  std::int16_t CurrentPersonID = 0; ///< the person that NamesManager shows or has stored
  Value WizardPlaceID;              ///< the place chosen in the year wizard
  std::optional<std::filesystem::path> LastFolder;      ///< last opened in Add From File
  std::optional<std::filesystem::path> LastSoundFolder; ///< last opened in Add Audio

  std::unique_ptr<Recordset> rsSearch; ///< result of Search
  std::unique_ptr<Recordset> rsViewer; ///< what the album pages show
  std::unique_ptr<Recordset> rsZoom;   ///< what the zoom view shows
  std::unique_ptr<Recordset> rsHelp;   ///< the table Help

  std::array<Value, 25> PagePositions; ///< record positions of the thumbnails on a result page
  std::int16_t PageThumbCount = 0;     ///< thumbnails on the result page
  SelectionSet selection;              ///< the photos selected on the result pages
  bool AtFirstPage = false;            ///< the result page shown is the first
  std::int16_t ViewPageCount = 0;      ///< photos on the album page
  /// The markers of each photo on the album page; nothing where a photo has none.
  std::array<std::optional<std::vector<std::string>>, 5> PageMarkers;
  std::string ContextPhotoID; ///< the photo under the sub-album editor's pop-up

  struct ChosenAlbum {
    int id = 0;
    std::string name;
  } chosenAlbum; ///< the album picker's current row; the View Albums menu sets it too

  std::string SearchSummary; ///< the criteria in words; cleared when Search unloads
};

} // namespace hearthbook
