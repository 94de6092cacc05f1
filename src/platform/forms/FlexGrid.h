#pragma once

#include <QColor>
#include <QString>
#include <QTableWidget>

namespace hearthbook {

/// A grid of texts for reading and choosing: a fixed header in row 0, the rows below it from 1
/// on, each with a number behind it. Heights are told in twips (15 to a standard pixel).
///
/// The mouse and the arrow keys choose a row; Return on it is told by returnPressed(). Where
/// the mouse is, mouseRow() and mouseCol() say.
class FlexGrid : public QTableWidget {
  Q_OBJECT
public:
  enum class FocusRect { None, Light, Heavy };

  explicit FlexGrid(QWidget* parent = nullptr);

  /// The header: texts divided by "|", each begun by "<", "^" or ">" for left, centred or
  /// right. Makes as many columns; the blanks around a text widen its column.
  void setFormat(const QString& format);
  void clearRows(); ///< all but the header

  [[nodiscard]] int rows() const; ///< the header included
  [[nodiscard]] int cols() const { return columnCount(); }
  /// Adds a row in front of `index` (1 to rows(); at the end without one). Tabs divide cells.
  void addRow(const QString& texts, int index = -1);
  void deleteRow(int row);

  [[nodiscard]] QString cellText(int row, int col) const;
  void setCellText(int row, int col, const QString& text);
  void setCellBack(int row, int col, const QColor& colour);
  void setCellBold(int row, int col);
  void setCellPoints(int row, int col, double points);
  /// A small picture in front of the text, as large as the grid's iconSize().
  void setCellPicture(int row, int col, const QPixmap& picture);
  [[nodiscard]] qint64 rowData(int row) const; ///< 0 unless set
  void setRowData(int row, qint64 number);

  [[nodiscard]] int rowTwips(int row) const;
  void setRowTwips(int row, int twips);
  void setColTwips(int col, int twips); ///< 0 hides the column
  void shareWidthFrom(int col);         ///< the columns from this one on share the room there is

  [[nodiscard]] int row() const; ///< the current one; 0 where none is chosen
  [[nodiscard]] int col() const;
  void setRow(int row);
  [[nodiscard]] int topRow() const; ///< the first row in sight below the header
  void setTopRow(int row);          ///< before the grid is in sight too

  [[nodiscard]] int mouseRow() const { return mouseRow_; } ///< 0 over the header, -1 over no row
  [[nodiscard]] int mouseCol() const { return mouseCol_; }
  [[nodiscard]] QRect rowRect(int row) const; ///< within the grid, in pixels

  /// How the current row is shown.
  void setSelection(const QColor& colour, FocusRect focus);
  [[nodiscard]] QColor selectionColour() const;
  [[nodiscard]] FocusRect focusRect() const { return focus_; }

Q_SIGNALS:
  void mouseMoved();    ///< over the rows or the header
  void gridClicked();   ///< with the left button; mouseRow() and mouseCol() say where
  void returnPressed(); ///< on the current row

protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  class RowPainter;
  [[nodiscard]] QTableWidgetItem* cell(int row, int col) const;
  void noteMouse(QPoint inViewport);
  void fitColumns();
  [[nodiscard]] int toPixels(int twips) const;

  QStringList formatTexts_; ///< with the blanks that widen the columns
  FocusRect focus_ = FocusRect::Light;
  int wantedTop_ = 0; ///< told while there was nothing to scroll yet
  int mouseRow_ = -1;
  int mouseCol_ = -1;
};

} // namespace hearthbook
