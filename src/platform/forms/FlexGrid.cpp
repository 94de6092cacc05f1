#include "FlexGrid.h"

#include "Look.h"
#include "Stage.h"
#include "Twips.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace hearthbook {

namespace {

constexpr int rowDataRole = Qt::UserRole;
constexpr int twipsRole = Qt::UserRole + 1;  // height of the row, on its first cell
constexpr int pointsRole = Qt::UserRole + 2; // size of the cell's type

Qt::Alignment alignmentOf(QChar mark) {
  if (mark == QLatin1Char('^'))
    return Qt::AlignCenter;
  return (mark == QLatin1Char('>') ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

bool isAlignment(QChar mark) {
  return mark == QLatin1Char('<') || mark == QLatin1Char('^') || mark == QLatin1Char('>');
}

} // namespace

/// Draws the focus as a frame around the whole row, and the lines between the cells, which the
/// table would draw across the frame.
class FlexGrid::RowPainter : public QStyledItemDelegate {
public:
  explicit RowPainter(FlexGrid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem plain = option;
    plain.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, plain, index);
    const bool isLast = index.column() == grid_->columnCount() - 1;
    if (grid_->showGrid())
      drawLines(*painter, option);
    if (grid_->focus_ != FocusRect::None && index.row() == grid_->currentRow())
      frame(*painter, option.rect.adjusted(0, 0, grid_->showGrid() && !isLast ? 1 : 0, 0),
            index.column());
  }

private:
  void drawLines(QPainter& painter, const QStyleOptionViewItem& option) const {
    const int hint = grid_->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, grid_);
    const QColor ink = QColor::fromRgba(static_cast<QRgb>(hint));
    const QRect& cell = option.rect; // the table leaves a pixel to the right of it and below
    painter.fillRect(cell.right() + 1, cell.top(), 1, cell.height() + 1, ink);
    painter.fillRect(cell.left(), cell.bottom() + 1, cell.width(), 1, ink);
  }

  void frame(QPainter& painter, const QRect& cell, int column) const {
    const int width = grid_->focus_ == FocusRect::Heavy ? 2 : 1;
    const QColor ink = look::darkRed;
    painter.fillRect(cell.left(), cell.top(), cell.width(), width, ink);
    painter.fillRect(cell.left(), cell.bottom() - width + 1, cell.width(), width, ink);
    if (column == 0)
      painter.fillRect(cell.left(), cell.top(), width, cell.height(), ink);
    if (column == grid_->columnCount() - 1)
      painter.fillRect(cell.right() - width + 1, cell.top(), width, cell.height(), ink);
  }

  const FlexGrid* grid_;
};

FlexGrid::FlexGrid(QWidget* parent) : QTableWidget(parent) {
  setItemDelegate(new RowPainter(this));
  setGridStyle(Qt::NoPen); // keeps the room for the lines
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setVerticalScrollMode(ScrollPerItem);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(0);
  horizontalHeader()->setStretchLastSection(true);
  setMouseTracking(true);
  viewport()->setMouseTracking(true);
  horizontalHeader()->viewport()->setMouseTracking(true);
  horizontalHeader()->viewport()->installEventFilter(this);
}

void FlexGrid::setFormat(const QString& format) {
  const QStringList columns = format.split(QLatin1Char('|'));
  setColumnCount(static_cast<int>(columns.size()));
  formatTexts_.clear();
  for (int col = 0; col < columnCount(); ++col) {
    const QString& column = columns[col];
    const bool isMarked = !column.isEmpty() && isAlignment(column[0]);
    formatTexts_ << column.mid(isMarked ? 1 : 0);
    auto* header = new QTableWidgetItem(formatTexts_[col].trimmed());
    header->setTextAlignment(alignmentOf(isMarked ? column[0] : QLatin1Char('<')));
    setHorizontalHeaderItem(col, header);
  }
  fitColumns();
}

void FlexGrid::fitColumns() {
  for (int col = 0; col < formatTexts_.size(); ++col) {
    QFont font = horizontalHeader()->font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    const int margin = 2 * metrics.averageCharWidth();
    const int shortText = metrics.horizontalAdvance(QStringLiteral("0000000"));
    setColumnWidth(col, std::max(metrics.horizontalAdvance(formatTexts_[col]), shortText) + margin);
  }
}

void FlexGrid::clearRows() { setRowCount(0); }

int FlexGrid::rows() const { return rowCount() + 1; }

void FlexGrid::addRow(const QString& texts, int index) {
  const int at = index < 1 ? rowCount() : std::min(index - 1, rowCount());
  insertRow(at);
  const QStringList cells = texts.split(QLatin1Char('\t'));
  for (int col = 0; col < columnCount(); ++col) {
    auto* item = new QTableWidgetItem(cells.value(col));
    if (const QTableWidgetItem* header = horizontalHeaderItem(col))
      item->setTextAlignment(Qt::Alignment(header->textAlignment()));
    setItem(at, col, item);
  }
}

void FlexGrid::deleteRow(int row) { removeRow(row - 1); }

QTableWidgetItem* FlexGrid::cell(int row, int col) const {
  return row == 0 ? horizontalHeaderItem(col) : item(row - 1, col);
}

QString FlexGrid::cellText(int row, int col) const {
  const QTableWidgetItem* found = cell(row, col);
  return found ? found->text() : QString();
}

void FlexGrid::setCellText(int row, int col, const QString& text) {
  if (QTableWidgetItem* found = cell(row, col))
    found->setText(text);
}

void FlexGrid::setCellBack(int row, int col, const QColor& colour) {
  if (QTableWidgetItem* found = cell(row, col))
    found->setBackground(colour);
}

void FlexGrid::setCellBold(int row, int col) {
  QTableWidgetItem* found = cell(row, col);
  if (!found)
    return;
  QFont font = found->font();
  font.setBold(true);
  found->setFont(font);
}

void FlexGrid::setCellPoints(int row, int col, double points) {
  QTableWidgetItem* found = cell(row, col);
  if (!found)
    return;
  QFont font = found->font();
  font.setPointSizeF(points * Stage::scaleOf(this));
  found->setFont(font);
  found->setData(pointsRole, points);
}

void FlexGrid::setCellPicture(int row, int col, const QPixmap& picture) {
  if (QTableWidgetItem* found = cell(row, col))
    found->setIcon(QIcon(picture));
}

qint64 FlexGrid::rowData(int row) const {
  const QTableWidgetItem* first = cell(row, 0);
  return first ? first->data(rowDataRole).toLongLong() : 0;
}

void FlexGrid::setRowData(int row, qint64 number) {
  if (QTableWidgetItem* first = cell(row, 0))
    first->setData(rowDataRole, number);
}

int FlexGrid::toPixels(int twips) const {
  return qRound(twips * Stage::scaleOf(this) / twipsPerPixel);
}

int FlexGrid::rowTwips(int row) const {
  const QTableWidgetItem* first = cell(row, 0);
  const int told = first ? first->data(twipsRole).toInt() : 0;
  const int pixels = row == 0 ? horizontalHeader()->height() : rowHeight(row - 1);
  return told ? told : qRound(pixels * twipsPerPixel / Stage::scaleOf(this));
}

void FlexGrid::setRowTwips(int row, int twips) {
  if (QTableWidgetItem* first = cell(row, 0))
    first->setData(twipsRole, twips);
  if (row == 0)
    horizontalHeader()->setFixedHeight(toPixels(twips));
  else
    setRowHeight(row - 1, toPixels(twips));
}

void FlexGrid::setColTwips(int col, int twips) {
  setColumnHidden(col, twips == 0);
  if (twips > 0)
    setColumnWidth(col, toPixels(twips));
}

void FlexGrid::shareWidthFrom(int col) {
  for (int shared = col; shared < columnCount(); ++shared)
    horizontalHeader()->setSectionResizeMode(shared, QHeaderView::Stretch);
}

int FlexGrid::row() const { return currentRow() + 1; }

int FlexGrid::col() const { return std::max(currentColumn(), 0); }

void FlexGrid::setRow(int row) {
  if (row < 1 || row > rowCount()) {
    setCurrentCell(-1, -1);
    clearSelection();
  } else {
    setCurrentCell(row - 1, 0);
  }
}

int FlexGrid::topRow() const { return rowCount() == 0 ? 1 : verticalScrollBar()->value() + 1; }

void FlexGrid::setTopRow(int row) {
  if (row < 1 || row > rowCount())
    return;
  wantedTop_ = isVisible() ? 0 : row;
  if (isVisible())
    scrollToItem(item(row - 1, 0), PositionAtTop);
}

void FlexGrid::showEvent(QShowEvent* event) {
  QTableWidget::showEvent(event);
  if (wantedTop_ > 0)
    setTopRow(wantedTop_);
}

QRect FlexGrid::rowRect(int row) const {
  if (row == 0)
    return horizontalHeader()->geometry();
  const QRect inside(0, rowViewportPosition(row - 1), viewport()->width(), rowHeight(row - 1));
  return inside.translated(viewport()->pos());
}

void FlexGrid::setSelection(const QColor& colour, FocusRect focus) {
  focus_ = focus;
  QPalette shown = palette();
  const bool isDark = contrast(look::onDark, colour) > contrast(look::ink, colour);
  shown.setColor(QPalette::Highlight, colour);
  shown.setColor(QPalette::HighlightedText, isDark ? look::onDark : look::ink);
  setPalette(shown);
  viewport()->update();
}

QColor FlexGrid::selectionColour() const { return palette().color(QPalette::Highlight); }

void FlexGrid::noteMouse(QPoint inViewport) {
  const int at = rowAt(inViewport.y());
  mouseRow_ = at < 0 ? -1 : at + 1;
  mouseCol_ = columnAt(inViewport.x());
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
  QTableWidget::mouseMoveEvent(event);
  noteMouse(event->position().toPoint());
  Q_EMIT mouseMoved();
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
  QTableWidget::mouseReleaseEvent(event);
  noteMouse(event->position().toPoint());
  if (event->button() == Qt::LeftButton)
    Q_EMIT gridClicked();
}

bool FlexGrid::eventFilter(QObject* watched, QEvent* event) {
  const bool isMove = event->type() == QEvent::MouseMove;
  const bool isClick = event->type() == QEvent::MouseButtonRelease;
  if (watched == horizontalHeader()->viewport() && (isMove || isClick)) {
    mouseRow_ = 0;
    mouseCol_ =
        horizontalHeader()->logicalIndexAt(static_cast<QMouseEvent*>(event)->position().toPoint());
    isMove ? Q_EMIT mouseMoved() : Q_EMIT gridClicked();
  }
  return QTableWidget::eventFilter(watched, event);
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isReturn || row() == 0)
    return QTableWidget::keyPressEvent(event);
  event->accept();
  Q_EMIT returnPressed();
}

void FlexGrid::changeEvent(QEvent* event) {
  QTableWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange)
    return;
  // The stage has a new scale: what is told in twips and points follows.
  for (int row = 0; row < rows(); ++row) {
    for (int col = 0; col < columnCount(); ++col)
      if (const QTableWidgetItem* found = cell(row, col);
          found && found->data(pointsRole).isValid())
        setCellPoints(row, col, found->data(pointsRole).toDouble());
    if (const QTableWidgetItem* first = cell(row, 0); first && first->data(twipsRole).isValid())
      setRowTwips(row, first->data(twipsRole).toInt());
  }
  fitColumns();
}

} // namespace hearthbook
