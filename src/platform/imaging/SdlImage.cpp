#include "SdlImage.h"

#include "SharedLibrary.h"

namespace hearthbook {

namespace {

/// SDL itself comes with the library and is found through it.
SdlImage loadSdlImage() {
  const SharedLibrary library("libSDL2_image-2.0.so.0", "The reader of PCX and TGA pictures");
  SdlImage functions{};
  library.find(functions.loadTyped, "IMG_LoadTyped_RW");
  library.find(functions.convertFormat, "SDL_ConvertSurfaceFormat");
  library.find(functions.freeSurface, "SDL_FreeSurface");
  return functions;
}

} // namespace

const SdlImage& sdlImage() {
  static const SdlImage loaded = loadSdlImage();
  return loaded;
}

} // namespace hearthbook
