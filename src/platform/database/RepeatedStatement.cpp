#include "RepeatedStatement.h"

#include "Connection.h"
#include "JetSql.h"
#include "Statement.h"

namespace hearthbook {

RepeatedStatement::RepeatedStatement(Connection& connection, std::string_view statement)
    : statement_(std::make_unique<Statement>(connection.handle(), toSqlite(statement))) {}

RepeatedStatement::~RepeatedStatement() = default;

void RepeatedStatement::run(std::initializer_list<Value> values) {
  statement_->reset();
  int parameter = 0;
  for (const Value& value : values)
    statement_->bind(++parameter, value);
  statement_->run();
}

} // namespace hearthbook
