#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// What must be known of a SELECT before its rows can be written back and put in order.
struct SelectShape {
  bool plain = false;    ///< each row of the answer comes from one row of each table
  bool ordered = false;  ///< has an ORDER BY
  std::string soleTable; ///< the only table read from; empty where there are several
};

SelectShape selectShape(std::string_view select);

/// The same select with one more column, `"table"."field"`, in front.
std::string withColumn(std::string_view select, std::string_view table, std::string_view field);

/// The same select, ordered by the fields. Where it has a condition, the answer is sorted
/// (which the + says): walking the whole table in order would test every row.
std::string withOrder(std::string_view select, const std::vector<std::string>& fields);

/// A bare name stands for the whole table.
std::string asSelect(std::string_view source);

} // namespace hearthbook
