#include "RowMatcher.h"

#include "RunTimeError.h"
#include "TextNumber.h"

#include <algorithm>

namespace hearthbook {

namespace {

using Operator = Comparison::Operator;

/// From so many texts on a list is looked up.
constexpr std::size_t longList = 8;

/// Whether a cell that comes before, equals or comes behind the value holds.
std::array<bool, 3> placesTaken(Operator op) {
  switch (op) {
  case Operator::Equal:
    return {false, true, false};
  case Operator::Unequal:
    return {true, false, true};
  case Operator::Less:
    return {true, false, false};
  case Operator::AtMost:
    return {true, true, false};
  case Operator::More:
    return {false, false, true};
  case Operator::AtLeast:
    return {false, true, true};
  case Operator::Like:
    break;
  }
  return {};
}

} // namespace

RowMatcher::RowMatcher(const Criterion& criterion, const Answer& answer) : kind_(criterion.kind) {
  for (const Criterion& part : criterion.parts)
    parts_.emplace_back(part, answer);
  if (kind_ == Criterion::Kind::One)
    test_ = makeTest(criterion.comparison, answer);
  if (kind_ == Criterion::Kind::Any)
    gatherTexts();
}

RowMatcher::RowMatcher(std::vector<RowId> chosen) : chosen_(std::move(chosen)) {}

RowMatcher::Test RowMatcher::makeTest(const Comparison& comparison, const Answer& answer) {
  const auto column = answer.column(comparison.field);
  if (!column)
    throw RunTimeError("There is no field " + comparison.field + " in the record set.");
  Test test;
  test.column = *column;
  test.op = comparison.op;
  test.taken = placesTaken(comparison.op);
  if (comparison.value.isNull())
    return test;
  test.text = comparison.value.toText();
  test.isText = comparison.value.isText();
  const auto number = test.isText ? wholeNumberOrReal(test.text) : comparison.value;
  test.integer = number ? number->toInteger() : 0;
  test.real = number ? number->toReal() : 0;
  test.against = !number               ? Test::Against::Text
                 : number->isInteger() ? Test::Against::Integer
                                       : Test::Against::Real;
  if (test.op == Operator::Like) {
    test.against = Test::Against::Pattern;
    test.pattern.emplace(test.text);
  }
  return test;
}

bool RowMatcher::isPlainEquality(std::size_t column) const {
  return kind_ == Criterion::Kind::One && test_->op == Operator::Equal && test_->isText &&
         test_->column == column && foldedPlain(test_->text);
}

void RowMatcher::gatherTexts() {
  const auto first = std::find_if(parts_.begin(), parts_.end(), [](const RowMatcher& part) {
    return part.test_ && part.isPlainEquality(part.test_->column);
  });
  if (first == parts_.end())
    return;
  TextList list{first->test_->column, {}};
  const auto rest = std::partition(parts_.begin(), parts_.end(), [&](const RowMatcher& part) {
    return part.isPlainEquality(list.column);
  });
  listed_ = static_cast<std::size_t>(rest - parts_.begin());
  if (listed_ < longList)
    return;
  for (auto part = parts_.begin(); part != rest; ++part)
    list.texts.insert(*foldedPlain(part->test_->text));
  list_ = std::move(list);
}

bool RowMatcher::matchesParts(const RowSet& rows, RowId row) const {
  switch (kind_) {
  case Criterion::Kind::One:
    return std::binary_search(chosen_.begin(), chosen_.end(), row);
  case Criterion::Kind::All:
    return std::all_of(parts_.begin(), parts_.end(),
                       [&](const RowMatcher& part) { return part.matches(rows, row); });
  case Criterion::Kind::Any:
    break;
  }
  return matchesAny(rows, row);
}

bool RowMatcher::matchesAny(const RowSet& rows, RowId row) const {
  auto from = parts_.begin();
  if (list_ && rows.kind(row, list_->column) == RowSet::Kind::Text) {
    const auto cell = foldedPlain(rows.text(row, list_->column));
    if (cell && list_->texts.contains(*cell))
      return true;
    if (cell)
      from += static_cast<std::ptrdiff_t>(listed_);
  }
  return std::any_of(from, parts_.end(),
                     [&](const RowMatcher& part) { return part.matches(rows, row); });
}

bool RowMatcher::Test::holdsOtherwise(const RowSet& rows, RowId row) const {
  const RowSet::Kind kind = rows.kind(row, column);
  if (against == Against::Null)
    return (kind == RowSet::Kind::Null) == (op == Operator::Equal);
  if (kind == RowSet::Kind::Null)
    return false;
  if (against == Against::Pattern)
    return pattern->matches(kind == RowSet::Kind::Text ? rows.text(row, column)
                                                       : rows.value(row, column).toText());
  if (kind == RowSet::Kind::Text)
    return holdsForText(rows.text(row, column));
  return holdsForNumber(rows, row);
}

bool RowMatcher::Test::holdsForNumber(const RowSet& rows, RowId row) const {
  if (against == Against::Text)
    return holdsFor(-1); // numbers come before texts
  const bool whole = rows.kind(row, column) != RowSet::Kind::Real;
  if (whole && against == Against::Integer)
    return holdsFor(ordered(rows.integer(row, column), integer));
  const double cell =
      whole ? static_cast<double>(rows.integer(row, column)) : rows.real(row, column);
  return holdsFor(ordered(cell, real));
}

bool RowMatcher::Test::holdsForText(std::string_view cell) const {
  if (isText) {
    if (op == Operator::Equal || op == Operator::Unequal)
      return sameText(cell, text) == (op == Operator::Equal);
    return holdsFor(compareText(cell, text));
  }
  const auto number = wholeNumberOrReal(cell);
  return holdsFor(number ? ordered(number->toReal(), real) : 1);
}

} // namespace hearthbook
