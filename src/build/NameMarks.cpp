#include "NameMarks.h"

#include "NamesCords.h"

#include <algorithm>

namespace hearthbook {

namespace {

constexpr std::size_t manyNames = 50;
constexpr TwipsSize markerSize{200, 288};
constexpr TwipsPoint markerTip{100, 288}; // from its top-left corner

} // namespace

bool mayPutIn(bool isPersonChosen, std::size_t namesInPhoto) {
  return isPersonChosen || namesInPhoto >= manyNames;
}

void writeNames(Recordset& photos, const std::vector<NameEntry>& names) {
  photos.Collect("NamesInPhoto", namesInPhotoText(names));
}

void takeNameOut(Recordset& photos, const std::vector<NameEntry>& left, std::int64_t id) {
  const std::string markers = photos.Collect("NamesCords").toText();
  if (!markers.empty())
    photos.Collect("NamesCords", withoutMarker(markers, id));
  writeNames(photos, left);
  photos.Update();
}

void markName(Recordset& photos, std::int64_t id, TwipsPoint position) {
  photos.Collect("NamesCords", withMarker(photos.Collect("NamesCords").toText(), id, position));
  photos.Update();
}

TwipsPoint pointOnImage(TwipsRect image, TwipsPoint onStage) {
  return {std::clamp(onStage.x - image.left, 0.0, image.width),
          std::clamp(onStage.y - image.top, 0.0, image.height)};
}

TwipsRect markerRect(TwipsRect image, TwipsPoint position) {
  return {image.left + position.x - markerTip.x, image.top + position.y - markerTip.y,
          markerSize.width, markerSize.height};
}

} // namespace hearthbook
