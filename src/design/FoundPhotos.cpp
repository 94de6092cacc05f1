#include "FoundPhotos.h"

#include "ApplicationFolder.h"
#include "Beside.h"
#include "Decode.h"
#include "Encode.h"
#include "GridWalk.h"
#include "Look.h"
#include "PhotoBox.h"
#include "Text.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr int cellCount = FoundPhotos::columns * FoundPhotos::rows;

const QString nothingFound = QStringLiteral("There are no such photos.");

constexpr int stretchedMost = 2 * thumbnailSide; // from there on a thumbnail is a blur

} // namespace

struct FoundPhotos::Wanted {
  Files files;
  DesignHit hit;
  std::filesystem::path notFound;
  int side; ///< pixels that the cell has
};

struct FoundPhotos::Shown {
  Picture picture;
  bool blurred = false; ///< the photo would be sharper
};

/// The thumbnail, else what stands in for it.
FoundPhotos::Shown FoundPhotos::thumbnailOf(const Wanted& wanted) {
  const auto file = wanted.files.thumbnail(wanted.hit);
  Shown shown{fileExists(file) ? pictureWithinOrNone(file, wanted.side) : Picture(), false};
  if (shown.picture.isNull())
    shown.picture = pictureWithinOrNone(wanted.notFound, wanted.side);
  else
    shown.blurred = wanted.side > stretchedMost && file != wanted.files.photo(wanted.hit);
  return shown;
}

/// The photo as sharp as the cell can show it; none where it cannot be read.
FoundPhotos::Shown FoundPhotos::photoOf(const Wanted& wanted) {
  const auto file = wanted.files.photo(wanted.hit);
  return {fileExists(file) ? pictureWithinOrNone(file, wanted.side) : Picture(), false};
}

FoundPhotos::FoundPhotos(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  makeCells();
}

void FoundPhotos::makeCells() {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(4);
  for (int index = 0; index < cellCount; ++index) {
    auto* cell = new PhotoBox(PhotoBox::Fit::Within, {}, this);
    cell->setObjectName(QStringLiteral("Image1"));
    cell->setProperty("index", index);
    cell->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cell->setEnabled(false);
    cell->installEventFilter(this);
    grid->addWidget(cell, index / columns, index % columns);
    connect(cell, &QAbstractButton::clicked, this, [this, index] {
      Q_EMIT chosen(hits_[static_cast<std::size_t>(hitOf(index))].pictureId);
    });
    cells_.push_back(cell);
  }
  tickets_.resize(cells_.size());
}

void FoundPhotos::setSource(WorkPool& pool, QScrollBar* bar, Files files,
                            std::filesystem::path notFound) {
  pool_ = &pool;
  bar_ = bar;
  files_ = std::move(files);
  notFound_ = std::move(notFound);
  connect(bar_, &QScrollBar::valueChanged, this, &FoundPhotos::showPage);
  showNothing();
}

void FoundPhotos::showHits(std::vector<DesignHit> hits) {
  hits_ = std::move(hits);
  searched_ = true;
  layOutBar();
}

void FoundPhotos::showNothing() {
  hits_.clear();
  searched_ = false;
  layOutBar();
}

void FoundPhotos::layOutBar() {
  const int lines = (static_cast<int>(hits_.size()) + columns - 1) / columns;
  bar_->setRange(0, std::max(0, lines - rows));
  bar_->setPageStep(rows);
  bar_->setValue(0);
  bar_->setEnabled(bar_->maximum() > 0);
  setAccessibleDescription(searched_ && hits_.empty() ? nothingFound : QString());
  showPage();
  update();
}

int FoundPhotos::hitOf(int cell) const { return bar_->value() * columns + cell; }

int FoundPhotos::focusedCell() const {
  const auto at = std::ranges::find_if(cells_, &QWidget::hasFocus);
  return at == cells_.end() ? -1 : static_cast<int>(at - cells_.begin());
}

void FoundPhotos::showPage() {
  const int last = std::min(cellCount, count() - hitOf(0)) - 1;
  if (focusedCell() > last && last >= 0)
    cells_[static_cast<std::size_t>(last)]->setFocus(Qt::OtherFocusReason);
  setTabStop(std::max(0, focusedCell()));
  for (int cell = 0; cell < cellCount; ++cell)
    showCell(cell);
}

void FoundPhotos::showCell(int cell) {
  PhotoBox* box = cells_[static_cast<std::size_t>(cell)];
  const bool filled = hitOf(cell) < count();
  const QString told =
      filled ? toQString(hits_[static_cast<std::size_t>(hitOf(cell))].toolTip) : QString();
  box->setPicture({});
  box->setEnabled(filled);
  box->setToolTip(told);
  box->setAccessibleName(filled ? QStringLiteral("Photo ") + told : QString());
  tickets_[static_cast<std::size_t>(cell)].reset();
  if (filled)
    askForPicture(cell);
}

void FoundPhotos::askForPicture(int cell) {
  tickets_[static_cast<std::size_t>(cell)] = std::make_shared<int>();
  ask(cell, thumbnailOf);
}

/// What is scrolled away before its turn is not decoded.
void FoundPhotos::ask(int cell, Shown (*find)(const Wanted& wanted)) {
  const auto place = static_cast<std::size_t>(cell);
  PhotoBox* box = cells_[place];
  const double side = std::max(box->width(), box->height()) * devicePixelRatioF();
  runBeside(
      *pool_, box,
      [find, ticket = std::weak_ptr<void>(tickets_[place]),
       wanted = Wanted{files_, hits_[static_cast<std::size_t>(hitOf(cell))], notFound_,
                       std::max(1, static_cast<int>(side))}] {
        return ticket.expired() ? Shown() : find(wanted);
      },
      [this, cell, ticket = std::weak_ptr<void>(tickets_[place])](const Shown& shown) {
        if (!ticket.expired())
          show(cell, shown);
      });
}

void FoundPhotos::show(int cell, const Shown& shown) {
  if (!shown.picture.isNull())
    cells_[static_cast<std::size_t>(cell)]->setPicture(shown.picture);
  if (shown.blurred)
    ask(cell, photoOf);
}

bool FoundPhotos::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn)
    setTabStop(focusedCell());
  else if (event->type() == QEvent::KeyPress && walk(static_cast<QKeyEvent*>(event)->key()))
    return true;
  return QWidget::eventFilter(watched, event);
}

bool FoundPhotos::walk(int key) {
  const int from = hitOf(focusedCell());
  const int last = count() - 1;
  if (key == Qt::Key_PageUp)
    focusOn(std::max(0, from - cellCount));
  else if (key == Qt::Key_PageDown)
    focusOn(std::min(last, from + cellCount));
  else if (const auto target = walkedTo(from, last, columns, key))
    focusOn(*target);
  else
    return false;
  return true;
}

void FoundPhotos::focusOn(int hit) {
  const int row = hit / columns;
  if (row < bar_->value())
    bar_->setValue(row);
  else if (row >= bar_->value() + rows)
    bar_->setValue(row - rows + 1);
  cells_[static_cast<std::size_t>(hit - hitOf(0))]->setFocus(Qt::OtherFocusReason);
}

void FoundPhotos::setTabStop(int cell) {
  for (int other = 0; other < cellCount; ++other)
    cells_[static_cast<std::size_t>(other)]->setFocusPolicy(other == cell ? Qt::StrongFocus
                                                                          : Qt::ClickFocus);
}

void FoundPhotos::paintEvent(QPaintEvent*) {
  if (accessibleDescription().isEmpty())
    return;
  QPainter painter(this);
  painter.setPen(look::quietInk);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, nothingFound);
}

void FoundPhotos::wheelEvent(QWheelEvent* event) {
  const int up = wheel_.take(*event, std::max(1, height() / rows));
  bar_->setValue(bar_->value() - up);
  event->accept();
}

} // namespace hearthbook
