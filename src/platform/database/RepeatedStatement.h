#pragma once

#include "Value.h"

#include <initializer_list>
#include <memory>
#include <string_view>

namespace hearthbook {

class Connection;
class Statement;

/// A statement that changes rows, prepared once and run many times with other values for its
/// marks "?". Best inside a transaction. Throws RunTimeError.
class RepeatedStatement {
public:
  RepeatedStatement(Connection& connection, std::string_view statement);
  ~RepeatedStatement();
  RepeatedStatement(const RepeatedStatement&) = delete;
  RepeatedStatement& operator=(const RepeatedStatement&) = delete;

  void run(std::initializer_list<Value> values);

private:
  std::unique_ptr<Statement> statement_;
};

} // namespace hearthbook
