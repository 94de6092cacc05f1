#pragma once

#include "ApplicationFolder.h"
#include "Connection.h"
#include "ExportPages.h"
#include "Recordset.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace hearthbook {

/// The photos of a sub-album in their order, read through a connection of the export's own.
class ExportRows {
public:
  ExportRows(const ApplicationFolder& folder, std::int64_t albumId);

  [[nodiscard]] std::int64_t count() const { return photos_.RecordCount(); }
  [[nodiscard]] bool atEnd() const { return photos_.atEOF(); }
  void moveNext() { photos_.MoveNext(); }

  [[nodiscard]] std::string pictureId() const { return photos_.Collect("PictureID").toText(); }
  /// What is known of the photo; its sound is not.
  [[nodiscard]] SidePage page() const;
  std::optional<std::string> nameOfPerson(std::int64_t id);

private:
  Connection connection_;
  Recordset photos_;
  Recordset people_;
  std::map<std::int64_t, std::optional<std::string>> names_;
};

} // namespace hearthbook
