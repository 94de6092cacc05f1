#pragma once

#include "AlbumData.h"
#include "ApplicationFolder.h"
#include "Drives.h"
#include "PublicVar.h"

#include <filesystem>

namespace hearthbook {

/// The application object: everything that lives as long as the process.
struct Album {
  explicit Album(ApplicationFolder applicationFolder, Drives machineDrives = Drives())
      : folder(std::move(applicationFolder)), drives(std::move(machineDrives)) {}

  ApplicationFolder folder;
  Drives drives;
  Connection helpConnection; ///< to Help.mdb, held for rsHelp
  AlbumData data;
  PublicVar vars; ///< behind `data`: its record sets go first
};

} // namespace hearthbook
