#pragma once

#include "Answer.h"
#include "Criterion.h"
#include "TextOrder.h"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace hearthbook {

/// A criterion made ready for the rows of one answer, or a choice of rows.
class RowMatcher {
public:
  /// Throws RunTimeError if the answer has no such field.
  RowMatcher(const Criterion& criterion, const Answer& answer);
  explicit RowMatcher(std::vector<RowId> chosen); ///< in rising order

  [[nodiscard]] bool matches(const RowSet& rows, RowId row) const;

private:
  struct Test {
    std::size_t column = 0;
    Comparison::Operator op = Comparison::Operator::Equal;
    Value value;
    std::string text;            ///< of the value
    std::optional<Value> number; ///< of the value, a quoted one too
    std::optional<LikePattern> pattern;

    [[nodiscard]] bool holds(const RowSet& rows, RowId row) const;
    [[nodiscard]] bool holdsForText(std::string_view cell) const;
    [[nodiscard]] bool holdsForInteger(std::int64_t cell) const;
    [[nodiscard]] bool holdsForReal(double cell) const;
    [[nodiscard]] bool holdsFor(int order) const;
  };

  Criterion::Kind kind_ = Criterion::Kind::One;
  std::optional<Test> test_; // of Kind::One; without it, chosen_ holds
  std::vector<RowId> chosen_;
  std::vector<RowMatcher> parts_;
};

} // namespace hearthbook
