#include "PhotoScript.h"

#include "Numbers.h"

#include <array>
#include <cstdio>

namespace hearthbook {

namespace {

constexpr std::string_view scriptBeginning = "var albumPhotos = {\"album\": ";

std::string listOf(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts)
    list += (list.empty() ? "" : ", ") + scriptText(text);
  return "[" + list + "]";
}

std::string escaped(char c) {
  std::array<char, 8> code{};
  std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned char>(c));
  return code.data();
}

} // namespace

void PhotoScript::add(const SidePage& page, const NameOfPerson& nameOf) {
  const std::string number = std::to_string(page.number);
  photos_ += photos_.empty() ? "\n" : ",\n";
  photos_ += scriptText(number) + ": {\"year\": " + scriptText(yearLine(page)) +
             ", \"event\": " + scriptText(eventLine(page)) +
             ", \"names\": " + listOf(namesOf(page, nameOf)) +
             ", \"description\": " + scriptText(page.description.toText());
  if (!page.soundExtension.empty())
    photos_ += ", \"sound\": " + scriptText(number + page.soundExtension);
  photos_ += "}";
}

std::string PhotoScript::text(const ScriptedAlbum& album) const {
  return std::string(scriptBeginning) + std::to_string(album.id) +
         ", \"count\": " + std::to_string(album.photos) +
         ", \"music\": " + scriptText(album.music) + ", \"photos\": {" + photos_ + "}};\n";
}

std::optional<std::int64_t> albumOfScript(std::string_view script) {
  const auto at = script.find(scriptBeginning);
  if (at == std::string_view::npos)
    return std::nullopt;
  return leadingNumber(script.substr(at + scriptBeginning.size()));
}

std::string scriptText(std::string_view text) {
  std::string written("\"");
  for (const char c : text) {
    const bool isControl = static_cast<unsigned char>(c) < 0x20;
    if (c == '"' || c == '\\')
      written += '\\';
    written += isControl ? escaped(c) : std::string(1, c);
  }
  written += '"';
  // To older browsers these two end a line, which no text may hold.
  return withToken(withToken(written, "\u2028", "\\u2028"), "\u2029", "\\u2029");
}

} // namespace hearthbook
