#include "FoundPhotos.h"

#include "ApplicationFolder.h"
#include "Beside.h"
#include "Decode.h"
#include "Look.h"
#include "PhotoBox.h"
#include "Text.h"

#include <QGridLayout>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr int thumbnailSide = 160; // as large as a cell is on a large screen

/// The thumbnail, else what stands in for it.
Picture thumbnailOr(const std::filesystem::path& file, const std::filesystem::path& notFound) {
  const Picture picture = fileExists(file) ? pictureWithinOrNone(file, thumbnailSide) : Picture();
  return picture.isNull() ? pictureWithinOrNone(notFound, thumbnailSide) : picture;
}

} // namespace

FoundPhotos::FoundPhotos(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  makeCells();
}

void FoundPhotos::makeCells() {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(4);
  for (int index = 0; index < columns * rows; ++index) {
    auto* cell = new PhotoBox(PhotoBox::Fit::Within, {}, this);
    cell->setObjectName(QStringLiteral("Image1"));
    cell->setProperty("index", index);
    cell->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cell->setEnabled(false);
    grid->addWidget(cell, index / columns, index % columns);
    connect(cell, &QAbstractButton::clicked, this,
            [this, index] { Q_EMIT chosen(hits_[hitOf(index)].pictureId); });
    cells_.push_back(cell);
  }
}

void FoundPhotos::setSource(WorkPool& pool, QScrollBar* bar, FileOf fileOf,
                            std::filesystem::path notFound) {
  pool_ = &pool;
  bar_ = bar;
  fileOf_ = std::move(fileOf);
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
  showPage();
  update();
}

std::size_t FoundPhotos::hitOf(int cell) const {
  const int hit = bar_->value() * columns + cell;
  return static_cast<std::size_t>(hit);
}

void FoundPhotos::showPage() {
  for (int cell = 0; cell < columns * rows; ++cell)
    showCell(cell);
}

void FoundPhotos::showCell(int cell) {
  PhotoBox* box = cells_[static_cast<std::size_t>(cell)];
  const std::size_t hit = hitOf(cell);
  box->setPicture({});
  box->setEnabled(hit < hits_.size());
  const QString told = box->isEnabled() ? toQString(hits_[hit].toolTip) : QString();
  box->setToolTip(told);
  box->setAccessibleName(box->isEnabled() ? QStringLiteral("Photo ") + told : QString());
  if (!box->isEnabled())
    return;
  const std::string id = hits_[hit].pictureId;
  const auto stillWanted = [this, cell, id] {
    const std::size_t now = hitOf(cell);
    return now < hits_.size() && hits_[now].pictureId == id;
  };
  runBeside(
      *pool_, box,
      [file = fileOf_(hits_[hit]), other = notFound_] { return thumbnailOr(file, other); },
      [box, stillWanted](const Picture& picture) {
        if (stillWanted())
          box->setPicture(picture);
      });
}

void FoundPhotos::paintEvent(QPaintEvent*) {
  if (!searched_ || !hits_.empty())
    return;
  QPainter painter(this);
  painter.setPen(look::quietInk);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                   QStringLiteral("There are no such photos."));
}

void FoundPhotos::wheelEvent(QWheelEvent* event) {
  bar_->setValue(bar_->value() + (event->angleDelta().y() > 0 ? -1 : 1));
  event->accept();
}

} // namespace hearthbook
