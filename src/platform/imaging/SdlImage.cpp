#include "SdlImage.h"

#include "RunTimeError.h"

#include <dlfcn.h>

#include <string>

namespace hearthbook {

namespace {

constexpr const char* libraryFile = "libSDL2_image-2.0.so.0";

/// SDL itself comes with the library and is found through it.
template <class Function> Function find(void* library, const char* name) {
  void* found = dlsym(library, name);
  if (!found)
    throw RunTimeError(std::string(libraryFile) + " lacks " + name + ".");
  return reinterpret_cast<Function>(found);
}

SdlImage loadSdlImage() {
  void* library = dlopen(libraryFile, RTLD_NOW | RTLD_LOCAL);
  if (!library)
    throw RunTimeError(std::string("The reader of PCX and TGA pictures is not there: ") +
                       dlerror()); // NOLINT(concurrency-mt-unsafe): its text is the thread's own
  SdlImage functions{};
  functions.loadTyped = find<decltype(functions.loadTyped)>(library, "IMG_LoadTyped_RW");
  functions.convertFormat =
      find<decltype(functions.convertFormat)>(library, "SDL_ConvertSurfaceFormat");
  functions.freeSurface = find<decltype(functions.freeSurface)>(library, "SDL_FreeSurface");
  return functions;
}

} // namespace

const SdlImage& sdlImage() {
  static const SdlImage loaded = loadSdlImage();
  return loaded;
}

} // namespace hearthbook
