#include "NamesCords.h"

#include "NamesInPhoto.h"

#include "Numbers.h"

#include <algorithm>
#include <cmath>

namespace hearthbook {
namespace {

constexpr std::size_t entryLength = 14; // of an id with three digits
constexpr std::size_t keyLength = 3;
constexpr int placeDigits = 4;
constexpr std::size_t xStart = 4; // behind the id and the dash

std::string keyOf(std::int64_t id) { return personKey(id) + "-"; }

/// What stands in front of a person's entries and behind them.
struct Surroundings {
  std::string_view front;
  std::string_view back;
};

/// Keys are found as text, so that "001-" is found inside the entry of 1001 too.
std::optional<Surroundings> aroundMarker(std::string_view namesCords, std::int64_t id) {
  const std::string key = keyOf(id);
  const auto first = namesCords.find(key);
  if (first == std::string_view::npos)
    return std::nullopt;
  const auto end = std::min(namesCords.rfind(key) + entryLength, namesCords.size());
  return Surroundings{namesCords.substr(0, first), namesCords.substr(end)};
}

std::string joined(std::string_view front, std::string_view middle, std::string_view back) {
  return std::string(front).append(middle).append(back);
}

double numberIn(std::string_view digits) { return static_cast<double>(leadingNumber(digits)); }

/// "004-0341X1022" as a place; the X is read at its place in the entry, the Y from its end.
std::optional<TwipsPoint> placeIn(std::string_view entry) {
  if (entry.size() < xStart + placeDigits)
    return std::nullopt;
  return TwipsPoint{numberIn(entry.substr(xStart, placeDigits)),
                    numberIn(entry.substr(entry.size() - placeDigits))};
}

} // namespace

std::string markerEntry(std::int64_t id, TwipsPoint position) {
  return keyOf(id) + padded(std::llround(position.x), placeDigits) + "X" +
         padded(std::llround(position.y), placeDigits) + ",";
}

bool hasMarker(std::string_view namesCords, std::int64_t id) {
  return namesCords.find(keyOf(id)) != std::string_view::npos;
}

std::string withMarker(std::string_view namesCords, std::int64_t id, TwipsPoint position) {
  const std::string entry = markerEntry(id, position);
  const auto around = aroundMarker(namesCords, id);
  return around ? joined(around->front, entry, around->back) : joined(namesCords, entry, "");
}

Value withoutMarker(std::string_view namesCords, std::int64_t id) {
  const auto around = aroundMarker(namesCords, id);
  const std::string rest =
      around ? joined(around->front, around->back, "") : std::string(namesCords);
  return rest.empty() ? Value() : Value(rest);
}

std::vector<std::string> markerEntries(std::string_view namesCords) {
  std::vector<std::string> entries;
  for (auto end = namesCords.find(','); end != std::string_view::npos; end = namesCords.find(',')) {
    entries.emplace_back(namesCords.substr(0, end));
    namesCords.remove_prefix(end + 1);
  }
  entries.emplace_back(namesCords);
  return entries;
}

bool isMarkerOf(std::string_view entry, std::int64_t id) {
  return entry.substr(0, keyLength) == personKey(id);
}

std::optional<TwipsPoint> placeOfMarker(const std::vector<std::string>& entries, std::int64_t id) {
  const auto found =
      std::ranges::find_if(entries, [id](const auto& entry) { return isMarkerOf(entry, id); });
  return found == entries.end() ? std::nullopt : placeIn(*found);
}

std::optional<TwipsPoint> markerPosition(std::string_view namesCords, std::int64_t id) {
  auto entries = markerEntries(namesCords);
  entries.pop_back();
  return placeOfMarker(entries, id);
}

} // namespace hearthbook
