#include "PictureFile.h"

#include "PictureHeads.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace hearthbook {

namespace {

constexpr std::string_view tgaFooterMark = "TRUEVISION-XFILE.";

bool isNamedTga(const std::filesystem::path& path) {
  return sameIgnoringCase(path.extension().string(), ".tga");
}

bool hasTgaFooter(const InputFile& file) {
  constexpr std::size_t footerTail = tgaFooterMark.size() + 1;
  if (file.size() < footerTail)
    return false;
  const auto tail = file.bytesAt(file.size() - footerTail, tgaFooterMark.size());
  return std::equal(tail.begin(), tail.end(), tgaFooterMark.begin(), tgaFooterMark.end(),
                    [](std::uint8_t a, char b) { return a == static_cast<std::uint8_t>(b); });
}

/// The content decides; only TGA, whose first bytes are no mark, needs its name or its footer.
FileFormat recognise(const InputFile& file) {
  const auto head = file.bytesAt(0, headBytes);
  if (const auto format = formatOfHead(head))
    return *format;
  if (readTgaHead(head) && (isNamedTga(file.path()) || hasTgaFooter(file)))
    return FileFormat::Tga;
  cannotReadPicture(file.path(), "it is not a picture of a kind that Hearthbook knows");
}

std::unique_ptr<PictureFile> openAs(FileFormat format, InputFile file) {
  switch (format) {
  case FileFormat::Jpeg:
    return openJpeg(std::move(file));
  case FileFormat::Pcx:
  case FileFormat::Tga:
    return openThroughSdl(std::move(file), format);
  default:
    return openThroughQt(std::move(file), format);
  }
}

void checkSize(const std::filesystem::path& path, PixelSize size) {
  if (size.width < 1 || size.height < 1)
    cannotReadPicture(path, "it does not say how large it is");
  if (std::int64_t{size.width} * size.height > maxPixels)
    cannotReadPicture(path, "it says that it has " + std::to_string(size.width) + " by " +
                                std::to_string(size.height) + " pixels, which is too large");
}

} // namespace

std::string formatName(FileFormat format) {
  static constexpr std::array<const char*, 8> names{"jpeg", "png", "bmp", "tiff",
                                                    "ico",  "gif", "pcx", "tga"};
  return names.at(static_cast<std::size_t>(format));
}

std::unique_ptr<PictureFile> openPictureFile(const std::filesystem::path& path) {
  InputFile file(path);
  const FileFormat format = recognise(file);
  auto opened = openAs(format, std::move(file));
  checkSize(path, opened->head().size);
  return opened;
}

} // namespace hearthbook
