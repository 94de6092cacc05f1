#pragma once

#include "FlexGrid.h"
#include "PhotoFacts.h"

#include <QPixmap>

#include <string>
#include <vector>

namespace hearthbook {

/// Who is in a photo: a grid without a header, a name to the row, the person's id in a hidden
/// column. A name that has a marker on the photo shows a small arrow.
class NamesGrid : public FlexGrid {
  Q_OBJECT
public:
  /// As many rows fill its height.
  explicit NamesGrid(int rowsInSight, QWidget* parent = nullptr);

  void setArrow(const QPixmap& arrow);
  void showNames(const std::vector<NamesRow>& names); ///< none of them chosen

  [[nodiscard]] int names() const { return rows() - 1; } ///< rows, the empty ones included
  [[nodiscard]] int rowsInSight() const { return rowsInSight_; }
  [[nodiscard]] QString nameText(int row) const;             ///< from 0
  [[nodiscard]] std::vector<std::string> shownNames() const; ///< without the empty rows
  /// The person in the current row; nothing in an empty row, or where no row is chosen.
  [[nodiscard]] std::optional<std::int64_t> chosenPerson() const;

Q_SIGNALS:
  void chosen(); ///< another row is current, or the current one was clicked

protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void shareHeight();

  int rowsInSight_;
  QPixmap arrow_;
};

} // namespace hearthbook
