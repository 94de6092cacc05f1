#pragma once

#include "Recordset.h"

#include <QComboBox>
#include <QListView>

#include <memory>
#include <string>
#include <vector>

class QLineEdit;
class QPlainTextEdit;

namespace hearthbook {

/// Where the entries of a bound list come from: rows of a record set, `listField` shown,
/// `boundColumn` standing behind each entry.
struct ListSource {
  Recordset* rows = nullptr;
  std::string listField;
  std::string boundColumn;
};

/// What a bound list shows: a text and the value behind it, in the order of the rows.
struct ListEntries {
  QStringList texts;
  std::vector<Value> values;

  [[nodiscard]] int indexOf(const Value& value) const; ///< -1 for Null and unknown values
};

/// Reads the entries of all rows that pass the set's filter; the set stays where it stands.
ListEntries readEntries(const ListSource& source);

/// A drop-down list of rows. Offers only stored rows; typing seeks among them. Delete and
/// Backspace empty the choice. The wheel turns it only where it has the focus.
class DataCombo : public QComboBox {
  Q_OBJECT
public:
  explicit DataCombo(QWidget* parent = nullptr);

  void setListSource(ListSource source); ///< and fills the list
  void ReFill();                         ///< reads the rows again, keeps the choice
  [[nodiscard]] QString Text() const;
  /// Chooses the row of that text (no regard to case). One that came after the last ReFill is
  /// chosen too; the drop-down offers it only after the next.
  void setText(const QString& text);
  [[nodiscard]] Value BoundText() const; ///< Null where nothing is chosen
  void setBoundText(const Value& value); ///< an unknown value shows nothing, until a row has it

Q_SIGNALS:
  void chosen(); ///< by the user or by setText, not by setBoundText

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  void choose(int index);
  int addUnlisted(const QString& text);

  ListSource source_;
  std::vector<Value> values_;
  Value wanted_; ///< what was set or chosen last, there or not
};

/// A list of rows.
class DataList : public QListView {
  Q_OBJECT
public:
  explicit DataList(QWidget* parent = nullptr);
  ~DataList() override;

  void setListSource(ListSource source);
  void ReFill();                         ///< reads the rows again, keeps the choice
  [[nodiscard]] QString Text() const;    ///< empty where nothing is chosen
  [[nodiscard]] Value BoundText() const; ///< Null where nothing is chosen
  void setBoundText(const Value& value); ///< an unknown value chooses nothing

Q_SIGNALS:
  void chosen();           ///< by the user, the same row again too; not by setBoundText
  void doubleClickedRow(); ///< or Return on it

protected:
  void mousePressEvent(QMouseEvent* event) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags
  selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
  class Model;
  [[nodiscard]] int chosenRow() const;
  void choose(int row);

  ListSource source_;
  Model* model_;
};

/// Ties controls to fields of a record set's current row.
///
/// Writes the edits that are pending in the controls before the set leaves its row, then
/// shows the new row. An emptied text is Null. A control marked as unchanged is not written.
/// Where there is no row the controls are empty and disabled. A form that is unloaded has its
/// edits written and stored; where that fails the user is asked whether to close without them.
class Binding {
public:
  explicit Binding(Recordset& rows);
  ~Binding();
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;

  void bind(QLineEdit* edit, std::string field);
  void bind(QPlainTextEdit* edit, std::string field);
  void bind(DataCombo* combo, std::string field);

  /// The current row once more, after the program has set fields of it. What is pending in a
  /// control stays.
  void show();
  void write(); ///< what is pending in the controls into the row's fields (no Update)
  [[nodiscard]] bool isChanged(const QWidget* control) const;
  /// Gives up the edit of one control's field; show() then shows the stored value again.
  void markUnchanged(const QWidget* control);
  void cancel(); ///< gives up all edits of the row and shows what is stored
  [[nodiscard]] bool has(const QWidget* control) const;

private:
  struct Impl;
  std::shared_ptr<Impl> impl_;
};

} // namespace hearthbook
