#include "Connection.h"

#include "DatabaseFile.h"
#include "Recordset.h"
#include "RecordsetImpl.h"
#include "RunTimeError.h"
#include "Statement.h"

#include <sqlite3.h>

#include <algorithm>
#include <exception>
#include <vector>

namespace hearthbook {

struct Connection::Impl {
  std::filesystem::path file;
  DatabaseHandle database;
  std::vector<Recordset*> recordsets;
  int depth = 0; // of transactions
};

namespace {

void refuseNewerSchema(sqlite3* database, const std::filesystem::path& file, int newest) {
  Statement version(database, "PRAGMA user_version");
  version.step();
  if (version.column(0).toInteger() > newest)
    throw RunTimeError("The database " + file.string() +
                       " was made by a newer version of Hearthbook. Please use that version.");
}

} // namespace

Connection::Connection() : impl_(std::make_unique<Impl>()) {}

Connection::~Connection() {
  try {
    Close();
  } catch (const RunTimeError&) {
    // Who wants to know whether the last edits were stored calls Close.
  }
  for (Recordset* recordset : impl_->recordsets)
    recordset->impl_->connection = nullptr;
}

void Connection::Open(const std::filesystem::path& file, int newestSchema) {
  Close();
  DatabaseHandle database = openDatabase(file);
  refuseNewerSchema(database.get(), file, newestSchema);
  impl_->database = std::move(database);
  impl_->file = file;
}

void Connection::Close() {
  std::exception_ptr firstFailure;
  const auto recordsets = impl_->recordsets;
  for (Recordset* recordset : recordsets) {
    try {
      recordset->Close();
    } catch (...) {
      firstFailure = firstFailure ? firstFailure : std::current_exception();
      recordset->impl_->abandon();
    }
  }
  impl_->database.reset();
  if (firstFailure)
    std::rethrow_exception(firstFailure);
}

bool Connection::isOpen() const { return impl_->database != nullptr; }

const std::filesystem::path& Connection::file() const { return impl_->file; }

bool Connection::passesQuickCheck() {
  return isOpen() && hearthbook::passesQuickCheck(impl_->database.get());
}

void Connection::transaction(const std::function<void()>& work) {
  if (impl_->depth > 0)
    return work();
  execute("BEGIN IMMEDIATE");
  ++impl_->depth;
  try {
    work();
    execute("COMMIT");
  } catch (...) {
    --impl_->depth;
    // Some failures, such as a full disk, have rolled back already.
    if (isOpen() && sqlite3_get_autocommit(handle()) == 0)
      sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
  --impl_->depth;
}

void Connection::execute(std::string_view statement) { Statement(handle(), statement).run(); }

sqlite3* Connection::handle() const {
  if (!isOpen())
    throw RunTimeError("The connection to the database is closed.");
  return impl_->database.get();
}

void Connection::add(Recordset& recordset) { impl_->recordsets.push_back(&recordset); }

void Connection::remove(const Recordset& recordset) {
  std::erase_if(impl_->recordsets, [&](const Recordset* one) { return one == &recordset; });
}

} // namespace hearthbook
