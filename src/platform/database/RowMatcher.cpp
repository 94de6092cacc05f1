#include "RowMatcher.h"

#include "RunTimeError.h"
#include "TextNumber.h"

#include <algorithm>

namespace hearthbook {

namespace {

using Operator = Comparison::Operator;

template <typename Number> int ordered(Number left, Number right) {
  return left < right ? -1 : left > right ? 1 : 0;
}

} // namespace

RowMatcher::RowMatcher(const Criterion& criterion, const Answer& answer) : kind_(criterion.kind) {
  for (const Criterion& part : criterion.parts)
    parts_.emplace_back(part, answer);
  if (kind_ != Criterion::Kind::One)
    return;
  const Comparison& comparison = criterion.comparison;
  const auto column = answer.column(comparison.field);
  if (!column)
    throw RunTimeError("There is no field " + comparison.field + " in the record set.");
  test_ = Test{*column, comparison.op, comparison.value, comparison.value.toText(), {}, {}};
  test_->number =
      comparison.value.isText() ? wholeNumberOrReal(test_->text) : std::optional(comparison.value);
  if (comparison.op == Operator::Like)
    test_->pattern.emplace(test_->text);
}

RowMatcher::RowMatcher(std::vector<RowId> chosen) : chosen_(std::move(chosen)) {}

bool RowMatcher::matches(const RowSet& rows, RowId row) const {
  auto holds = [&](const RowMatcher& part) { return part.matches(rows, row); };
  switch (kind_) {
  case Criterion::Kind::One:
    return test_ ? test_->holds(rows, row)
                 : std::binary_search(chosen_.begin(), chosen_.end(), row);
  case Criterion::Kind::All:
    return std::all_of(parts_.begin(), parts_.end(), holds);
  case Criterion::Kind::Any:
    break;
  }
  return std::any_of(parts_.begin(), parts_.end(), holds);
}

bool RowMatcher::Test::holds(const RowSet& rows, RowId row) const {
  const RowSet::Kind kind = rows.kind(row, column);
  if (value.isNull())
    return (kind == RowSet::Kind::Null) == (op == Operator::Equal);
  if (kind == RowSet::Kind::Null)
    return false;
  if (op == Operator::Like)
    return pattern->matches(kind == RowSet::Kind::Text ? rows.text(row, column)
                                                       : rows.value(row, column).toText());
  if (kind == RowSet::Kind::Text)
    return holdsForText(rows.text(row, column));
  if (kind == RowSet::Kind::Real)
    return holdsForReal(rows.real(row, column));
  return holdsForInteger(rows.integer(row, column));
}

bool RowMatcher::Test::holdsForText(std::string_view cell) const {
  if (value.isText()) {
    if (op == Operator::Equal || op == Operator::Unequal)
      return sameText(cell, text) == (op == Operator::Equal);
    return holdsFor(compareText(cell, text));
  }
  const auto cellNumber = wholeNumberOrReal(cell);
  return cellNumber ? holdsFor(ordered(cellNumber->toReal(), number->toReal())) : holdsFor(1);
}

bool RowMatcher::Test::holdsForInteger(std::int64_t cell) const {
  if (!number)
    return holdsFor(-1); // numbers come before texts
  if (number->isInteger())
    return holdsFor(ordered(cell, number->toInteger()));
  return holdsForReal(static_cast<double>(cell));
}

bool RowMatcher::Test::holdsForReal(double cell) const {
  return holdsFor(number ? ordered(cell, number->toReal()) : -1);
}

bool RowMatcher::Test::holdsFor(int order) const {
  switch (op) {
  case Operator::Equal:
    return order == 0;
  case Operator::Unequal:
    return order != 0;
  case Operator::Less:
    return order < 0;
  case Operator::AtMost:
    return order <= 0;
  case Operator::More:
    return order > 0;
  case Operator::AtLeast:
    return order >= 0;
  case Operator::Like:
    break;
  }
  return false;
}

} // namespace hearthbook
