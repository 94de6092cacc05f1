#pragma once

#include "PageDesign.h"

#include <stdexcept>
#include <string>

namespace hearthbook::test {

inline const PageDesign& designOfName(const std::string& name) {
  for (const PageDesign& design : pageDesigns())
    if (design.name == name)
      return design;
  throw std::invalid_argument("no design " + name);
}

} // namespace hearthbook::test
