#include "AlbumPicker.h"

#include "AlbumPickerPlace.h"
#include "Command.h"
#include "FlexGrid.h"
#include "Look.h"
#include "Stage.h"
#include "Text.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace hearthbook {

namespace {

constexpr int rowTwips = 390;
constexpr int descriptionColumn = 1;
constexpr double margin = 7; // around the description, in standard pixels

void layOnPaper(QLabel& note) {
  QPalette paper = note.palette();
  paper.setColor(QPalette::Window, look::panelYellow);
  note.setPalette(paper);
  note.setAutoFillBackground(true);
}

} // namespace

AlbumPicker::AlbumPicker(Stage& stage, Parts parts, Recordset& albums,
                         PublicVar::ChosenAlbum& chosen, QObject* parent)
    : QObject(parent), stage_(stage), parts_(parts), albums_(albums), chosen_(chosen) {
  FlexGrid* list = parts_.list;
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->installEventFilter(this);
  layOnPaper(*parts_.description);
  hideList();
  hideDescription();
  connect(list, &FlexGrid::mouseMoved, this, &AlbumPicker::pointAtRow);
  connect(list, &FlexGrid::currentCellChanged, this, &AlbumPicker::rowChanged);
  connect(list, &FlexGrid::gridClicked, this, asCommand([this] {
            if (parts_.list->mouseRow() > 0) // its heading is no album
              pick();
          }));
  connect(list, &FlexGrid::returnPressed, this, asCommand([this] { pick(); }));
  connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this,
          &AlbumPicker::placeDescription);
  connect(&stage_, &Stage::scaled, this, &AlbumPicker::place);
}

void AlbumPicker::open() {
  hideList();
  hideDescription();
  fill();
  place();
  parts_.list->show();
  parts_.list->raise();
  parts_.list->setFocus();
}

void AlbumPicker::fill() {
  FlexGrid& list = *parts_.list;
  list.setFormat(QStringLiteral("^Select Album To View:|"));
  list.clearRows();
  list.addRow(QStringLiteral("Master Album"));
  if (albums_.RecordCount() > 0) {
    for (albums_.MoveFirst(); !albums_.atEOF(); albums_.MoveNext()) {
      list.addRow({});
      const int row = list.rows() - 1;
      list.setCellText(row, 0, toQString(albums_.Collect("albumName").toText()));
      list.setCellText(row, descriptionColumn, toQString(albums_.Collect("Description").toText()));
      list.setRowData(row, albums_.Collect("AlbumID").toInteger());
    }
  }
  for (int row = 0; row < list.rows(); ++row)
    list.setRowTwips(row, rowTwips);
  list.setColTwips(descriptionColumn, 0);
  list.shareWidthFrom(0);
  list.setRow(0);
  rowChanged();
}

double AlbumPicker::toTwips(int pixels) const {
  return pixels * twipsPerPixel / std::max(stage_.scale(), 0.01);
}

// Rows have whole pixels: told in the twips that they really have, no row is cut.
void AlbumPicker::place() {
  FlexGrid& list = *parts_.list;
  if (list.rows() == 1)
    return;
  const auto told = albumPickerPlace(list.rows() - 2, toTwips(list.rowHeight(0)),
                                     stage_.rect(parts_.command).top);
  TwipsRect rect = stage_.rect(&list);
  rect.top = told.top;
  rect.height = told.height + toTwips(2 * list.frameWidth());
  stage_.setRect(&list, rect);
  list.setVerticalScrollBarPolicy(told.scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  placeDescription();
}

void AlbumPicker::placeDescription() {
  QLabel& note = *parts_.description;
  const int row = parts_.list->row();
  if (row == 0)
    return;
  note.setMargin(qRound(margin * stage_.scale()));
  TwipsRect rect = stage_.rect(&note);
  rect.height = toTwips(note.heightForWidth(note.width()));
  rect.top = stage_.rect(parts_.list).top + toTwips(parts_.list->rowRect(row).top());
  rect.top = std::max(0.0, std::min(rect.top, stage_.design().height - rect.height));
  stage_.setRect(&note, rect);
}

void AlbumPicker::pointAtRow() {
  if (const int row = parts_.list->mouseRow(); row >= 0)
    parts_.list->setRow(row);
}

void AlbumPicker::rowChanged() {
  const FlexGrid& list = *parts_.list;
  const int row = list.row();
  chosen_ = row == 0 ? PublicVar::ChosenAlbum()
                     : PublicVar::ChosenAlbum{static_cast<int>(list.rowData(row)),
                                              toUtf8(list.cellText(row, 0))};
  const QString text = row == 0 ? QString() : list.cellText(row, descriptionColumn);
  parts_.description->setText(text);
  parts_.description->setVisible(!text.isEmpty());
  parts_.description->raise();
  placeDescription();
}

void AlbumPicker::hideList() {
  if (parts_.list->hasFocus())
    parts_.command->setFocus();
  parts_.list->hide();
}

void AlbumPicker::hideDescription() { parts_.description->hide(); }

void AlbumPicker::pick() {
  const FlexGrid& list = *parts_.list;
  if (list.row() > 0)
    Q_EMIT picked(static_cast<int>(list.rowData(list.row())), list.cellText(list.row(), 0));
}

void AlbumPicker::giveUp() {
  hideList();
  hideDescription();
}

bool AlbumPicker::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    giveUp();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

} // namespace hearthbook
