#pragma once

#include "Value.h"

#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// `field operator value`, as Find and Filter take it.
struct Comparison {
  enum class Operator { Equal, Unequal, Less, AtMost, More, AtLeast, Like };

  std::string field;
  Operator op = Operator::Equal;
  Value value; ///< Null stands with = and <> alone
};

/// One comparison, or several that all or any must hold.
struct Criterion {
  enum class Kind { One, All, Any };

  Kind kind = Kind::One;
  Comparison comparison;        ///< of Kind::One
  std::vector<Criterion> parts; ///< of the others
};

/// Comparisons joined by AND, which binds closer, and OR, and put in brackets. A value is a
/// number, a text in single quotes (two of them stand for an apostrophe) or Null. Throws
/// RunTimeError for anything else, a stray apostrophe above all.
Criterion parseCriterion(std::string_view text);

} // namespace hearthbook
