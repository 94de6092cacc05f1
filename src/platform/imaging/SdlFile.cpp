#include "PictureFile.h"

#include "PaddedStream.h"
#include "Paper.h"
#include "PictureHeads.h"
#include "SdlImage.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace hearthbook {

namespace {

using Surface = std::unique_ptr<SDL_Surface, decltype(SdlImage::freeSurface)>;

class SdlFile : public PictureFile {
public:
  SdlFile(InputFile file, FileFormat format);
  [[nodiscard]] Head head() const override { return head_; }
  Pixels read(PixelSize atLeast) override;

private:
  [[nodiscard]] std::size_t mostBytesLacking() const;
  [[nodiscard]] Picture toPicture(SDL_Surface& surface) const;

  InputFile file_;
  Head head_;
  RasterHead raster_;
};

SdlFile::SdlFile(InputFile file, FileFormat format) : file_(std::move(file)) {
  const auto bytes = file_.bytesAt(0, headBytes);
  const auto raster = format == FileFormat::Pcx ? readPcxHead(bytes) : readTgaHead(bytes);
  if (!raster)
    cannotReadPicture(file_.path(), "its head makes no sense");
  raster_ = *raster;
  head_ = {raster_.size, 1, format};
}

Surface load(PaddedStream& stream, FileFormat format) {
  const SdlImage& sdl = sdlImage();
  const Surface loaded(
      sdl.loadTyped(stream.operations(), 0, format == FileFormat::Pcx ? "PCX" : "TGA"),
      sdl.freeSurface);
  if (!loaded)
    return {nullptr, sdl.freeSurface};
  return {sdl.convertFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0), sdl.freeSurface};
}

std::size_t SdlFile::mostBytesLacking() const {
  const auto rows = static_cast<std::size_t>(head_.size.height);
  if (head_.format == FileFormat::Pcx)
    return rows * static_cast<std::size_t>(raster_.bytesPerLine * raster_.planes);
  constexpr std::size_t mostBytesPerPixel = 5; // a run of one, four channels
  return rows * static_cast<std::size_t>(head_.size.width) * mostBytesPerPixel;
}

PictureFile::Pixels SdlFile::read(PixelSize) {
  constexpr std::uintmax_t mostBytes = std::uintmax_t{1} << 30;
  if (file_.size() > mostBytes)
    cannotReadPicture(file_.path(), "the file is too large");
  PaddedStream stream(file_.bytesAt(0, static_cast<std::size_t>(file_.size())), mostBytesLacking());
  // SDL's surfaces share a list of pixel formats among all threads.
  static std::mutex oneAtATime;
  const std::lock_guard lock(oneAtATime);
  const Surface surface = load(stream, head_.format);
  if (!surface || surface->w != head_.size.width || surface->h != head_.size.height)
    cannotReadPicture(file_.path(), "the picture in it is damaged");
  return {toPicture(*surface), stream.ranOut()};
}

/// Only a TGA can have an alpha channel, and only where its head says so it is meant.
Picture SdlFile::toPicture(SDL_Surface& surface) const {
  Picture picture(head_.size);
  for (int y = 0; y < surface.h; ++y) {
    const auto* from = reinterpret_cast<const std::uint32_t*>(
        static_cast<const std::uint8_t*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch);
    std::transform(from, from + surface.w, picture.writableRow(y), [&](std::uint32_t pixel) {
      return raster_.hasAlpha ? onWhitePaper(pixel) : pixel | 0xff000000U;
    });
  }
  return picture;
}

} // namespace

std::unique_ptr<PictureFile> openThroughSdl(InputFile file, FileFormat format) {
  return std::make_unique<SdlFile>(std::move(file), format);
}

} // namespace hearthbook
