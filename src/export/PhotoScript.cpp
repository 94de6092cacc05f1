#include "PhotoScript.h"

#include <array>
#include <cstdio>

namespace hearthbook {

namespace {

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

std::string PhotoScript::text(std::string_view music) const {
  return "var albumPhotos = {\"music\": " + scriptText(music) + ", \"photos\": {" + photos_ +
         "}};\n";
}

std::string scriptText(std::string_view text) {
  std::string written("\"");
  for (const char c : text) {
    const bool isControl = static_cast<unsigned char>(c) < 0x20;
    if (c == '"' || c == '\\')
      written += '\\';
    written += isControl ? escaped(c) : std::string(1, c);
  }
  return written += '"';
}

} // namespace hearthbook
