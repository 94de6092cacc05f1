#include "PrintSteps.h"

namespace hearthbook {

namespace {

constexpr int whole = 100;
constexpr int quarter = 25;
constexpr int lastThumbnail = 23;
constexpr std::size_t picturesOfCell = 2; ///< the names and the photo

int singleValue(PrintStep step) {
  switch (step) {
  case PrintStep::Begun:
    return quarter;
  case PrintStep::PictureReady:
    return 2 * quarter;
  case PrintStep::Painted:
    return 3 * quarter;
  case PrintStep::Delivered:
    break;
  }
  return whole;
}

std::optional<int> albumValue(const AlbumPrint& page, PrintStep step, std::size_t pictures) {
  if (step == PrintStep::Delivered)
    return whole;
  if (step != PrintStep::PictureReady || pictures < picturesOfCell)
    return std::nullopt;
  return (page.cells.at(pictures / picturesOfCell - 1).place + 1) * quarter;
}

std::optional<int> contactValue(const ContactPrint& page, PrintStep step, std::size_t pictures) {
  if (step != PrintStep::PictureReady || pictures == 0)
    return std::nullopt;
  return page.cells.at(pictures - 1).place;
}

} // namespace

int printSteps(const PrintPage& page) {
  return std::holds_alternative<ContactPrint>(page) ? lastThumbnail : whole;
}

std::optional<int> printStepValue(const PrintPage& page, PrintStep step, std::size_t pictures) {
  if (const auto* album = std::get_if<AlbumPrint>(&page))
    return albumValue(*album, step, pictures);
  if (const auto* contact = std::get_if<ContactPrint>(&page))
    return contactValue(*contact, step, pictures);
  return singleValue(step);
}

} // namespace hearthbook
