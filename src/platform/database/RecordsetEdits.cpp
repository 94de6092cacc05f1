#include "RecordsetImpl.h"

#include "Connection.h"
#include "RunTimeError.h"

#include <algorithm>

namespace hearthbook {

void Recordset::AddNew() {
  impl_->leave();
  impl_->beginNewRow();
  impl_->tellArrived();
}

void Recordset::AddNew(const std::vector<std::string>& fields, const std::vector<Value>& values) {
  if (fields.size() != values.size())
    throw RunTimeError("A new row needs one value for each of its fields.");
  impl_->leave();
  impl_->beginNewRow();
  try {
    for (std::size_t i = 0; i < fields.size(); ++i)
      Collect(fields[i], values[i]);
    impl_->store();
  } catch (...) {
    impl_->dropEdits();
    throw;
  }
  impl_->tellArrived();
}

void Recordset::Update() { impl_->leave(); }

void Recordset::UpdateBatch() { impl_->leave(); }

void Recordset::CancelUpdate() {
  impl_->requireOpen();
  impl_->dropEdits();
  impl_->tellArrived();
}

void Recordset::CancelUpdate(std::string_view field) {
  impl_->requireRow();
  const std::size_t column = impl_->requireField(field);
  std::erase_if(impl_->edits, [column](const auto& edit) { return edit.first == column; });
}

bool Recordset::isPending() const { return impl_->newRow || !impl_->edits.empty(); }

void Recordset::Delete(Affect affect) {
  if (affect == Affect::Current)
    impl_->requireRow();
  if (impl_->newRow) {
    CancelUpdate();
    if (affect == Affect::Current)
      return;
  }
  if (!impl_->answer().writeBack)
    throw RunTimeError("No row can be deleted from the record set: " + impl_->source);
  std::vector<RowId> rows =
      affect == Affect::Group ? impl_->view.rows() : std::vector<RowId>{impl_->view.current()};
  connection().transaction([&] { deleteRows(connection().handle(), impl_->answer(), rows); });
  std::sort(rows.begin(), rows.end());
  const auto shared = impl_->shared; // one that is told may close this set
  shared->remove(rows);
}

void Recordset::setAll(std::string_view field, const Value& value) {
  impl_->leave();
  const std::size_t column = impl_->requireWritableField(field);
  const std::vector<RowId> rows = impl_->view.rows();
  Value stored;
  connection().transaction(
      [&] { stored = updateField(connection().handle(), impl_->answer(), rows, column, value); });
  for (const RowId row : rows)
    impl_->rows().set(row, column, stored);
  impl_->tellArrived();
}

} // namespace hearthbook
