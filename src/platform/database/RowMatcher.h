#pragma once

#include "Answer.h"
#include "Criterion.h"
#include "TextOrder.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace hearthbook {

/// A criterion made ready for the rows of one answer, or a choice of rows.
class RowMatcher {
public:
  /// Throws RunTimeError if the answer has no such field.
  RowMatcher(const Criterion& criterion, const Answer& answer);
  explicit RowMatcher(std::vector<RowId> chosen); ///< in rising order

  [[nodiscard]] bool matches(const RowSet& rows, RowId row) const {
    return test_ ? test_->holds(rows, row) : matchesParts(rows, row);
  }

private:
  struct Test {
    /// What the cell is compared with.
    enum class Against { Null, Pattern, Integer, Real, Text };

    std::size_t column = 0;
    Comparison::Operator op = Comparison::Operator::Equal;
    Against against = Against::Null;
    std::array<bool, 3> taken{}; ///< whether the cell may come before, equal or behind the value
    std::int64_t integer = 0;    ///< also of a quoted number
    double real = 0;
    bool isText = false;
    std::string text;
    std::optional<LikePattern> pattern;

    /// Most searches are for a number, in 100,000 rows: that case comes first and is inlined.
    [[nodiscard]] bool holds(const RowSet& rows, RowId row) const {
      if (against == Against::Integer && rows.kind(row, column) == RowSet::Kind::SmallInteger)
        return holdsFor(ordered(rows.integer(row, column), integer));
      return holdsOtherwise(rows, row);
    }
    [[nodiscard]] bool holdsOtherwise(const RowSet& rows, RowId row) const;
    [[nodiscard]] bool holdsForNumber(const RowSet& rows, RowId row) const;
    [[nodiscard]] bool holdsForText(std::string_view cell) const;
    [[nodiscard]] bool holdsFor(int order) const { return taken[static_cast<unsigned>(order + 1)]; }

    template <typename Number> static int ordered(Number left, Number right) {
      return static_cast<int>(left > right) - static_cast<int>(left < right);
    }
  };

  /// A long list of texts, any of which a field may have: looked up instead of walked.
  struct TextList {
    std::size_t column = 0;
    std::unordered_set<std::string> texts; ///< folded
  };

  static Test makeTest(const Comparison& comparison, const Answer& answer);
  void gatherTexts();
  [[nodiscard]] bool isPlainEquality(std::size_t column) const;
  [[nodiscard]] bool matchesParts(const RowSet& rows, RowId row) const;
  [[nodiscard]] bool matchesAny(const RowSet& rows, RowId row) const;

  Criterion::Kind kind_ = Criterion::Kind::One;
  std::optional<Test> test_; // of Kind::One; without it, chosen_ holds
  std::vector<RowId> chosen_;
  std::vector<RowMatcher> parts_; // those that stand in list_ first
  std::optional<TextList> list_;
  std::size_t listed_ = 0;
};

} // namespace hearthbook
