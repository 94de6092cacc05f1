#pragma once

#include "Value.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace hearthbook {

using RowId = std::uint32_t;

/// Rows of values in little memory: eight bytes a cell, and the texts one behind the other in
/// large chunks that never move. A text that is replaced leaves its old bytes behind.
class RowSet {
public:
  enum class Kind : std::uint8_t { Null, SmallInteger, Integer, Real, Text };

  explicit RowSet(std::size_t columns) : columns_(columns) {}

  [[nodiscard]] std::size_t columnCount() const { return columns_; }
  [[nodiscard]] RowId rowCount() const { return static_cast<RowId>(alive_.size()); }

  RowId append(); ///< a row of Nulls
  void setAlive(RowId row, bool alive) { alive_[row] = alive; }
  [[nodiscard]] bool isAlive(RowId row) const { return row < alive_.size() && alive_[row]; }

  void setNull(RowId row, std::size_t column);
  void setInteger(RowId row, std::size_t column, std::int64_t number);
  void setReal(RowId row, std::size_t column, double number);
  void setText(RowId row, std::size_t column, std::string_view text);
  void set(RowId row, std::size_t column, const Value& value);

  [[nodiscard]] Kind kind(RowId row, std::size_t column) const { return cell(row, column).kind; }
  [[nodiscard]] bool isNull(RowId row, std::size_t column) const {
    return kind(row, column) == Kind::Null;
  }
  /// Of a cell that holds a whole number, small or not.
  [[nodiscard]] std::int64_t integer(RowId row, std::size_t column) const {
    const Cell& content = cell(row, column);
    return content.kind == Kind::SmallInteger ? static_cast<std::int32_t>(content.place)
                                              : wideInteger(content.place);
  }
  [[nodiscard]] double real(RowId row, std::size_t column) const;
  [[nodiscard]] std::string_view text(RowId row, std::size_t column) const {
    const Cell& content = cell(row, column);
    return content.size == 0 ? std::string_view()
                             : std::string_view(at(content.place), content.size);
  }
  [[nodiscard]] Value value(RowId row, std::size_t column) const;

private:
  struct Cell {
    std::uint32_t place;     // the small number itself, or chunk and offset
    std::uint32_t size : 28; // of a text, in bytes
    Kind kind : 4;
  };
  static_assert(sizeof(Cell) == 8);

  static constexpr std::size_t rowsPerPage = 4096;
  static constexpr unsigned offsetBits = 20;
  static constexpr std::uint32_t longestText = (1U << 28) - 1;

  [[nodiscard]] const Cell& cell(RowId row, std::size_t column) const {
    return pages_[row / rowsPerPage][(row % rowsPerPage) * columns_ + column];
  }
  Cell& cell(RowId row, std::size_t column) {
    return pages_[row / rowsPerPage][(row % rowsPerPage) * columns_ + column];
  }
  [[nodiscard]] const char* at(std::uint32_t place) const {
    return chunks_[place >> offsetBits].get() + (place & ((1U << offsetBits) - 1));
  }
  void fill(RowId row, std::size_t column, Kind kind, std::uint32_t place, std::size_t size = 0) {
    Cell& content = cell(row, column);
    content.place = place;
    content.size = size & longestText;
    content.kind = kind;
  }
  [[nodiscard]] std::int64_t wideInteger(std::uint32_t place) const;
  std::uint32_t keep(const void* bytes, std::size_t size);
  void openChunk(std::size_t size);

  std::size_t columns_;
  std::vector<std::unique_ptr<Cell[]>> pages_;
  std::vector<bool> alive_;
  std::vector<std::unique_ptr<char[]>> chunks_;
  std::size_t openChunk_ = 0; // the one that texts are put into
  std::size_t used_ = 0;
  std::size_t room_ = 0;
};

} // namespace hearthbook
