#pragma once

#include "Album.h"
#include "BatchUpdate.h"
#include "Form.h"
#include "SearchQuery.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Ui {
class BatchEdit;
}

namespace hearthbook {

class DataCombo;
class NamePicking;
class PeopleCommands;
class PeopleControls;
struct NameListWords;

/// Batch Editing: one set of facts for every photo selected in the search, or their deletion.
///
/// What is entered here goes to all of them; a field that is left empty leaves theirs alone, and
/// names are only added. Search opens it, and returns to its page when the photos have changed.
class BatchEdit : public Form {
  Q_OBJECT
public:
  explicit BatchEdit(Album& album);
  ~BatchEdit() override;

  /// To be called before it is shown. What the search asks for cannot be deleted meanwhile; the
  /// photos can from then on.
  void workOn(SearchCriteria searched);

protected:
  void load() override;
  bool unloading() override;

private:
  void wireControls();
  void wireNames();
  void fillLists();
  void setFaces();
  void showNote();

  [[nodiscard]] BatchChanges readChanges() const;
  [[nodiscard]] SelectionSet& selection() const { return album_.vars.selection; }
  [[nodiscard]] Recordset& results() const { return *album_.vars.rsSearch; }

  void updateSelected();
  [[nodiscard]] BatchReport updateUnderHourglass(const std::vector<std::int64_t>& positions);
  void offerSeparateEditing(const std::vector<std::string>& ids);
  void editSeparately(const std::vector<std::string>& ids);
  void deleteSelected();
  [[nodiscard]] std::vector<std::int64_t> takeDeletable();
  void deleteUnderProgress(const std::vector<std::int64_t>& positions);
  void refresh(std::int16_t resultRow);
  void cancel();

  void deletePlace();
  void deleteEvent();
  void deleteName(const NameListWords& words, Recordset& list, DataCombo& dropDown);
  void tidyYear();

  Album& album_;
  std::unique_ptr<Ui::BatchEdit> ui;
  std::unique_ptr<PeopleControls> people_;
  std::unique_ptr<PeopleCommands> peopleCommands_;
  std::unique_ptr<NamePicking> picking_;
  SearchCriteria searched_;
  bool isTroubleTold_ = false; ///< that the album could not be read behind the work
};

} // namespace hearthbook
