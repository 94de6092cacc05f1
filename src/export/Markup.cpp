#include "Markup.h"

#include "Ascii.h"

#include <algorithm>

namespace hearthbook {

namespace {

/// The names that browsers also read without the semicolon, and in front of other letters.
constexpr std::string_view oldEntities[] = {
    "AElig",  "AMP",    "Aacute", "Acirc",  "Agrave", "Aring",  "Atilde", "Auml",   "COPY",
    "Ccedil", "ETH",    "Eacute", "Ecirc",  "Egrave", "Euml",   "GT",     "Iacute", "Icirc",
    "Igrave", "Iuml",   "LT",     "Ntilde", "Oacute", "Ocirc",  "Ograve", "Oslash", "Otilde",
    "Ouml",   "QUOT",   "REG",    "THORN",  "Uacute", "Ucirc",  "Ugrave", "Uuml",   "Yacute",
    "aacute", "acirc",  "acute",  "aelig",  "agrave", "amp",    "aring",  "atilde", "auml",
    "brvbar", "ccedil", "cedil",  "cent",   "copy",   "curren", "deg",    "divide", "eacute",
    "ecirc",  "egrave", "eth",    "euml",   "frac12", "frac14", "frac34", "gt",     "iacute",
    "icirc",  "iexcl",  "igrave", "iquest", "iuml",   "laquo",  "lt",     "macr",   "micro",
    "middot", "nbsp",   "not",    "ntilde", "oacute", "ocirc",  "ograve", "ordf",   "ordm",
    "oslash", "otilde", "ouml",   "para",   "plusmn", "pound",  "quot",   "raquo",  "reg",
    "sect",   "shy",    "sup1",   "sup2",   "sup3",   "szlig",  "thorn",  "times",  "uacute",
    "ucirc",  "ugrave", "uml",    "uuml",   "yacute", "yen",    "yuml"};

/// "#8364", "#x20ac".
bool beginsCharacterNumber(std::string_view text) {
  if (!text.starts_with('#'))
    return false;
  text.remove_prefix(1);
  const bool isHex = text.starts_with('x') || text.starts_with('X');
  const std::string_view digits = isHex ? "0123456789abcdefABCDEF" : "0123456789";
  text.remove_prefix(isHex ? 1 : 0);
  return !text.empty() && digits.find(text.front()) != std::string_view::npos;
}

/// "&amp;", "&#8364", "&copy 2000".
bool beginsEntity(std::string_view text) {
  if (text.front() != '&')
    return false;
  text.remove_prefix(1);
  const auto isOfName = [](char c) { return isAsciiLetter(c) || isAsciiDigit(c); };
  const auto end = std::ranges::find_if_not(text, isOfName);
  return beginsCharacterNumber(text) || (end != text.begin() && end != text.end() && *end == ';') ||
         std::ranges::any_of(oldEntities,
                             [text](std::string_view name) { return text.starts_with(name); });
}

bool beginsTag(std::string_view text) {
  return text.front() == '<' && text.size() > 1 &&
         (isAsciiLetter(text[1]) || text[1] == '/' || text[1] == '!' || text[1] == '?');
}

} // namespace

bool looksLikeMarkup(std::string_view text) {
  for (; !text.empty(); text.remove_prefix(1))
    if (beginsTag(text) || beginsEntity(text))
      return true;
  return false;
}

bool looksLikeMarkup(const SidePage& page, const NameOfPerson& nameOf) {
  std::vector<std::string> texts = namesOf(page, nameOf);
  for (const Value* text : {&page.event, &page.place, &page.description})
    texts.push_back(text->toText());
  return std::ranges::any_of(texts, [](const std::string& text) { return looksLikeMarkup(text); });
}

} // namespace hearthbook
