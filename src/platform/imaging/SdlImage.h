#pragma once

#include <SDL_image.h>

namespace hearthbook {

/// What is used of SDL_image. It draws some forty libraries in, sound and graphics systems among
/// them, and few families have a PCX or TGA file: so it is loaded when the first such file is
/// read, and the start of the program does not wait for it.
struct SdlImage {
  decltype(&IMG_LoadTyped_RW) loadTyped;
  decltype(&SDL_ConvertSurfaceFormat) convertFormat;
  decltype(&SDL_FreeSurface) freeSurface;
};

/// Throws RunTimeError where it is not installed.
const SdlImage& sdlImage();

} // namespace hearthbook
