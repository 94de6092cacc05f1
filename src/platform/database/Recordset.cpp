#include "Recordset.h"

#include "Connection.h"
#include "RecordsetImpl.h"
#include "RunTimeError.h"

namespace hearthbook {

Recordset::Subscription::Subscription(Subscription&&) noexcept = default;

Recordset::Subscription& Recordset::Subscription::operator=(Subscription&& other) noexcept {
  if (state_)
    state_->alive = false;
  state_ = std::move(other.state_);
  return *this;
}

Recordset::Subscription::~Subscription() {
  if (state_)
    state_->alive = false;
}

Recordset::Recordset(Connection& connection) : impl_(std::make_unique<Impl>()) {
  impl_->connection = &connection;
  connection.add(*this);
}

Recordset::~Recordset() {
  impl_->observers.clear();
  try {
    if (impl_->shared)
      impl_->store();
  } catch (const RunTimeError&) {
    // Who wants to know whether the last edits were stored calls Close.
  }
  impl_->abandon();
  if (impl_->connection)
    impl_->connection->remove(*this);
}

void Recordset::Open(std::string_view source) {
  const std::string statement(source); // it may be our own Source
  Close();
  impl_->source = statement;
  if (auto answer = runSource(connection().handle(), statement))
    impl_->show(std::move(answer));
}

void Recordset::Open() { Open(impl_->source); }

void Recordset::Close() {
  if (!impl_->shared)
    return;
  impl_->leave();
  impl_->abandon();
}

void Recordset::Requery() {
  impl_->leave();
  if (auto answer = runSource(connection().handle(), impl_->source))
    impl_->show(std::move(answer));
  else
    impl_->abandon(); // the source written meanwhile gives no rows
}

bool Recordset::isOpen() const { return impl_->shared != nullptr; }

const std::string& Recordset::Source() const { return impl_->source; }

void Recordset::Source(std::string source) { impl_->source = std::move(source); }

std::unique_ptr<Recordset> Recordset::Clone() const {
  auto clone = std::make_unique<Recordset>(connection());
  clone->becomeCloneOf(*this);
  return clone;
}

void Recordset::becomeCloneOf(const Recordset& other) {
  other.impl_->requireOpen();
  const auto shared = other.impl_->shared;
  Connection& theirs = other.connection();
  std::string source = other.impl_->source;
  Close();
  if (impl_->connection != &theirs) {
    if (impl_->connection)
      impl_->connection->remove(*this);
    impl_->connection = &theirs;
    theirs.add(*this);
  }
  impl_->source = std::move(source);
  impl_->share(shared);
  impl_->arrange();
  impl_->tellArrived();
}

Value Recordset::Collect(std::string_view field) const {
  const RowId row = impl_->requireRow();
  const std::size_t column = impl_->requireField(field);
  for (const auto& [edited, value] : impl_->edits)
    if (edited == column)
      return value;
  return impl_->rows().value(row, column);
}

Value Recordset::CollectAt(std::int64_t position, std::string_view field) const {
  impl_->requireOpen();
  if (position < 1 || position > impl_->view.size())
    throw RunTimeError("There is no row at position " + std::to_string(position) + ": " +
                       impl_->source);
  return impl_->rows().value(impl_->view.at(position - 1), impl_->requireField(field));
}

void Recordset::Collect(std::string_view field, Value value) {
  impl_->requireRow();
  impl_->edit(impl_->requireWritableField(field), std::move(value));
}

bool Recordset::hasField(std::string_view field) const {
  return impl_->answer().column(field).has_value();
}

std::vector<std::string> Recordset::fieldNames() const {
  std::vector<std::string> names;
  for (const Column& column : impl_->answer().columns)
    if (!column.hidden)
      names.push_back(column.name);
  return names;
}

Recordset::Subscription Recordset::observe(Observer observer) {
  Subscription subscription;
  subscription.state_ = std::make_shared<Subscription::State>();
  subscription.state_->observer = std::move(observer);
  impl_->observers.push_back(subscription.state_);
  return subscription;
}

Connection& Recordset::connection() const {
  if (!impl_->connection)
    throw RunTimeError("The connection of the record set has gone.");
  return *impl_->connection;
}

bool standsOnRow(const Recordset& rows) { return rows.isOpen() && !rows.atBOF() && !rows.atEOF(); }

} // namespace hearthbook
