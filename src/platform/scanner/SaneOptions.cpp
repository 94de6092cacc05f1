#include "SaneOptions.h"

#include "SaneLibrary.h"
#include "ScanFailure.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace hearthbook {

namespace {

bool isNumber(const SANE_Option_Descriptor& option) {
  return (option.type == SANE_TYPE_INT || option.type == SANE_TYPE_FIXED) &&
         option.size == static_cast<SANE_Int>(sizeof(SANE_Word));
}

SANE_Word wordOf(const SANE_Option_Descriptor& option, double value) {
  return option.type == SANE_TYPE_FIXED ? SANE_FIX(value)
                                        : static_cast<SANE_Word>(std::lround(value));
}

double valueOf(const SANE_Option_Descriptor& option, SANE_Word word) {
  return option.type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : word;
}

double nearestOfList(const SANE_Option_Descriptor& option, double value) {
  const SANE_Word* list = option.constraint.word_list;
  double nearest = value;
  double least = std::numeric_limits<double>::max();
  for (SANE_Word i = 1; i <= list[0]; ++i) {
    const double offered = valueOf(option, list[i]);
    if (std::abs(offered - value) < least) {
      least = std::abs(offered - value);
      nearest = offered;
    }
  }
  return nearest;
}

double nearest(const SANE_Option_Descriptor& option, double value) {
  if (option.constraint_type == SANE_CONSTRAINT_WORD_LIST)
    return nearestOfList(option, value);
  if (option.constraint_type != SANE_CONSTRAINT_RANGE)
    return value;
  const SANE_Range& range = *option.constraint.range;
  return std::clamp(value, valueOf(option, range.min), valueOf(option, range.max));
}

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

std::vector<std::string> textsOf(const SANE_Option_Descriptor& option) {
  std::vector<std::string> texts;
  if (option.constraint_type == SANE_CONSTRAINT_STRING_LIST)
    for (const SANE_String_Const* text = option.constraint.string_list; *text; ++text)
      texts.emplace_back(*text);
  return texts;
}

} // namespace

SaneOptions::SaneOptions(SANE_Handle device) : device_(device) { readNames(); }

void SaneOptions::readNames() {
  indices_.clear();
  SANE_Int count = 0;
  sane().getOptionDescriptor(device_, 0); // in the network nothing is told before this is asked
  if (sane().controlOption(device_, 0, SANE_ACTION_GET_VALUE, &count, nullptr) != SANE_STATUS_GOOD)
    return;
  for (SANE_Int i = 1; i < count; ++i) {
    const SANE_Option_Descriptor* option = sane().getOptionDescriptor(device_, i);
    if (option && option->name && *option->name)
      indices_.emplace(option->name, i);
  }
}

std::optional<SaneOptions::Option> SaneOptions::find(std::string_view name) const {
  const auto found = indices_.find(name);
  if (found == indices_.end())
    return std::nullopt;
  const SANE_Option_Descriptor* about = sane().getOptionDescriptor(device_, found->second);
  if (!about || !SANE_OPTION_IS_ACTIVE(about->cap))
    return std::nullopt;
  return Option{found->second, about};
}

bool SaneOptions::write(const Option& option, void* value) {
  SANE_Int changes = 0;
  if (!SANE_OPTION_IS_SETTABLE(option.about->cap) ||
      sane().controlOption(device_, option.index, SANE_ACTION_SET_VALUE, value, &changes) !=
          SANE_STATUS_GOOD)
    return false;
  if ((changes & SANE_INFO_RELOAD_OPTIONS) != 0)
    readNames();
  return true;
}

bool SaneOptions::setNumber(std::string_view name, double value) {
  const auto option = find(name);
  if (!option || !isNumber(*option->about))
    return false;
  SANE_Word word = wordOf(*option->about, nearest(*option->about, value));
  return write(*option, &word);
}

bool SaneOptions::setText(std::string_view name, const std::string& text) {
  const auto option = find(name);
  if (!option || option->about->type != SANE_TYPE_STRING ||
      text.size() >= static_cast<std::size_t>(option->about->size))
    return false;
  std::vector<char> value(static_cast<std::size_t>(option->about->size));
  std::ranges::copy(text, value.begin());
  return write(*option, value.data());
}

bool SaneOptions::setNamed(std::string_view name, const std::string& text) {
  const auto option = find(name);
  if (!option || option->about->type != SANE_TYPE_BOOL)
    return option && (setText(name, text) || setNumber(name, std::atof(text.c_str())));
  SANE_Bool value = text == "yes" ? SANE_TRUE : SANE_FALSE;
  return write(*option, &value);
}

/// Drivers word it in their own ways: "Color", "24bit Color".
void SaneOptions::chooseColour() {
  const auto option = find("mode");
  if (!option)
    return;
  for (const std::string& text : textsOf(*option->about))
    if (lowerCase(text).find("color") != std::string::npos && setText("mode", text))
      return;
}

void SaneOptions::chooseResolution(int dotsPerInch) {
  if (setNumber("resolution", dotsPerInch))
    return;
  setNumber("x-resolution", dotsPerInch);
  setNumber("y-resolution", dotsPerInch);
}

void SaneOptions::chooseWholeGlass() {
  constexpr double beyond = 30000; // millimetres or pixels
  for (const char* corner : {"tl-x", "tl-y"})
    setNumber(corner, 0);
  for (const char* corner : {"br-x", "br-y"}) {
    const auto option = find(corner);
    if (option && option->about->constraint_type != SANE_CONSTRAINT_NONE)
      setNumber(corner, beyond);
  }
}

void SaneOptions::follow(const ScanWish& wish) {
  chooseColour();
  setNumber("depth", 8);
  for (const auto& [name, value] : wish.settings)
    if (!setNamed(name, value))
      throw ScanFailure(ScanStatus::Failed, "it does not take " + value + " for " + name);
  chooseResolution(wish.dotsPerInch);
  chooseWholeGlass();
}

int SaneOptions::dotsPerInch() const {
  const auto resolution = find("resolution");
  const auto option = resolution ? resolution : find("x-resolution");
  SANE_Word word = 0;
  if (!option || !isNumber(*option->about) ||
      sane().controlOption(device_, option->index, SANE_ACTION_GET_VALUE, &word, nullptr) !=
          SANE_STATUS_GOOD)
    return 0;
  return static_cast<int>(std::lround(valueOf(*option->about, word)));
}

} // namespace hearthbook
