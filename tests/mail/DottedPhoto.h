#pragma once

#include "TestPictures.h"

#include "Decode.h"
#include "Encode.h"
#include "FileBytes.h"
#include "MUUEncode.h"

#include <filesystem>
#include <stdexcept>
#include <string>

namespace hearthbook::test {

/// The photo as it would be mailed if its length did not matter.
inline std::string encodedForMail(const std::filesystem::path& file) {
  constexpr int mailFactor = 5;
  return jpegBytes(decodePictureAt(file, {320, 240}).picture, mailFactor);
}

/// Writes a photo that, so encoded, would end with a line that begins with a dot.
inline void writeDottedPhoto(const std::filesystem::path& file) {
  constexpr unsigned enough = 1000;
  for (unsigned seed = 1; seed <= enough; ++seed) {
    writeBytes(file, jpegOf(grainy({64, 48}, seed)));
    if (lastUuLineBeginsWithDot(encodedForMail(file).size()))
      return;
  }
  throw std::runtime_error("no such photo was found");
}

} // namespace hearthbook::test
