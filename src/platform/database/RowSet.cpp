#include "RowSet.h"

#include "RunTimeError.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace hearthbook {

namespace {

constexpr std::size_t smallestChunk = 1U << 14;
constexpr std::size_t largestChunk = 1U << 20;
constexpr std::size_t mostChunks = 4096;

} // namespace

RowId RowSet::append() {
  const RowId row = rowCount();
  if (row % rowsPerPage == 0)
    pages_.push_back(std::make_unique_for_overwrite<Cell[]>(rowsPerPage * columns_));
  alive_.push_back(true);
  for (std::size_t column = 0; column < columns_; ++column)
    setNull(row, column);
  return row;
}

void RowSet::setNull(RowId row, std::size_t column) { fill(row, column, Kind::Null, 0); }

void RowSet::setInteger(RowId row, std::size_t column, std::int64_t number) {
  if (number >= std::numeric_limits<std::int32_t>::min() &&
      number <= std::numeric_limits<std::int32_t>::max())
    fill(row, column, Kind::SmallInteger, static_cast<std::uint32_t>(number));
  else
    fill(row, column, Kind::Integer, keep(&number, sizeof number));
}

void RowSet::setReal(RowId row, std::size_t column, double number) {
  fill(row, column, Kind::Real, keep(&number, sizeof number));
}

void RowSet::setText(RowId row, std::size_t column, std::string_view text) {
  fill(row, column, Kind::Text, keep(text.data(), text.size()), text.size());
}

void RowSet::set(RowId row, std::size_t column, const Value& value) {
  if (value.isNull())
    setNull(row, column);
  else if (value.isInteger())
    setInteger(row, column, value.toInteger());
  else if (value.isReal())
    setReal(row, column, value.toReal());
  else
    setText(row, column, value.toText());
}

std::int64_t RowSet::wideInteger(std::uint32_t place) const {
  std::int64_t number = 0;
  std::memcpy(&number, at(place), sizeof number);
  return number;
}

double RowSet::real(RowId row, std::size_t column) const {
  double number = 0;
  std::memcpy(&number, at(cell(row, column).place), sizeof number);
  return number;
}

Value RowSet::value(RowId row, std::size_t column) const {
  switch (kind(row, column)) {
  case Kind::Null:
    return {};
  case Kind::SmallInteger:
  case Kind::Integer:
    return integer(row, column);
  case Kind::Real:
    return real(row, column);
  case Kind::Text:
    break;
  }
  return text(row, column);
}

std::uint32_t RowSet::keep(const void* bytes, std::size_t size) {
  if (size == 0)
    return 0;
  if (size > longestText)
    throw RunTimeError("A text in the database is too long.");
  if (size > largestChunk) { // has a chunk of its own
    openChunk(size);
    room_ = used_ = 0;
    std::memcpy(chunks_.back().get(), bytes, size);
    return static_cast<std::uint32_t>(openChunk_ << offsetBits);
  }
  if (chunks_.empty() || room_ - used_ < size)
    openChunk(std::max(size, std::clamp(room_ * 2, smallestChunk, largestChunk)));
  const auto place = static_cast<std::uint32_t>((openChunk_ << offsetBits) | used_);
  std::memcpy(chunks_[openChunk_].get() + used_, bytes, size);
  used_ += size;
  return place;
}

void RowSet::openChunk(std::size_t size) {
  if (chunks_.size() == mostChunks)
    throw RunTimeError("The answer of the database is too large.");
  chunks_.push_back(std::make_unique_for_overwrite<char[]>(size));
  openChunk_ = chunks_.size() - 1;
  used_ = 0;
  room_ = size;
}

} // namespace hearthbook
