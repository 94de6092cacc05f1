#include "DesignSurface.h"

#include "Look.h"
#include "PhotoBox.h"
#include "PictureImage.h"
#include "Text.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

// The surface is larger than the screens that it is shown on at first, and so is its type.
constexpr double textPoints = 15;
constexpr double titlePoints = 22;
constexpr double captionPoints = 12;
constexpr const char* tagProperty = "Tag";

TwipsSize sizeOf(const TwipsRect& rect) { return {rect.width, rect.height}; }

} // namespace

DesignFrame::DesignFrame(QString caption, TwipsSize size, QWidget* parent)
    : Stage(size, parent), caption_(std::move(caption)) {
  setAccessibleName(caption_);
}

void DesignFrame::paintEvent(QPaintEvent*) {
  constexpr double radius = 6;
  constexpr TwipsRect captionPlace{270, 60, 12000, 450};
  constexpr int align = Qt::AlignLeft | Qt::AlignVCenter;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const QPen& pen : {QPen(look::sheet, 3), QPen(look::edge, 1)}) { // seen on any ground
    painter.setPen(pen);
    painter.drawRoundedRect(QRectF(QWidget::rect()).adjusted(1.5, 1.5, -1.5, -1.5), radius, radius);
  }
  const QRect caption = toPixels(captionPlace);
  const QRect slip = painter.boundingRect(caption, align, caption_).adjusted(-5, 0, 5, 0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::sheet);
  painter.drawRoundedRect(slip, radius, radius);
  painter.setPen(look::darkRed);
  painter.drawText(caption, align, caption_);
}

DesignSurface::DesignSurface(QWidget* parent) : Stage(designSurface, parent) {
  makeTitle();
  makeDecorations();
  for (const PageDesign& design : pageDesigns())
    for (const DesignBox& box : design.boxes)
      makeBox(design, box);
}

void DesignSurface::makeTitle() {
  titleFrame_ = new DesignFrame(QStringLiteral("Title"), sizeOf(designTitle), this);
  titleFrame_->setObjectName(QStringLiteral("boxTitle"));
  place(titleFrame_, designTitle, captionPoints);
  title_ = new QLineEdit;
  title_->setObjectName(QStringLiteral("txtTitle"));
  title_->setProperty(tagProperty, toQString(titleTag));
  title_->setAccessibleName(QStringLiteral("Title"));
  title_->setToolTip(QStringLiteral("The heading of the page"));
  title_->setAlignment(Qt::AlignCenter);
  constexpr TwipsRect field{210, 540, designTitle.width - 420, 780};
  titleFrame_->place(title_, field, titlePoints);
  connect(title_, &QLineEdit::textChanged, this, [this] { titleUnmade_ = true; });
}

void DesignSurface::makeDecorations() {
  left_ = new QLabel(this);
  left_->setObjectName(QStringLiteral("left_img"));
  place(left_, designLeft);
  right_ = new QLabel(this);
  right_->setObjectName(QStringLiteral("right_img"));
  place(right_, designRight);
  for (QLabel* decoration : {left_, right_})
    decoration->setScaledContents(true);
}

void DesignSurface::makeBox(const PageDesign& design, const DesignBox& box) {
  const int index = static_cast<int>(places_.size());
  const QString caption = toQString(box.caption);
  const QString tag = toQString(box.tag);
  auto* frame = new DesignFrame(caption, sizeOf(box.frame), this);
  frame->setObjectName(QStringLiteral("boxTemplate"));
  frame->setProperty("index", index);
  frame->setProperty(tagProperty, toQString(design.name));
  frame->hide();
  place(frame, box.frame, captionPoints);
  PhotoBox* photo = nullptr;
  if (box.hasPhoto) {
    photo = new PhotoBox(PhotoBox::Fit::Fills, QStringLiteral("Click to select a photo"));
    photo->setObjectName(QStringLiteral("img"));
    photo->setProperty("index", index);
    photo->setProperty(tagProperty, tag);
    photo->setAccessibleName(QStringLiteral("Photo: ") + caption);
    photo->setToolTip(QStringLiteral("Click to select a photo for ") + caption);
    frame->place(photo, photoInFrame(sizeOf(box.frame)), textPoints);
    connect(photo, &QAbstractButton::clicked, this, [this, index] { Q_EMIT photoAsked(index); });
  }
  auto* text = new QLineEdit;
  text->setObjectName(QStringLiteral("txtParents"));
  text->setProperty("index", index);
  text->setProperty(tagProperty, tag);
  text->setAccessibleName(caption);
  text->setToolTip(QStringLiteral("The words of the page for ") + caption);
  text->setAlignment(Qt::AlignCenter);
  frame->place(text, textInFrame(sizeOf(box.frame), box.hasPhoto), textPoints);
  connect(text, &QLineEdit::textChanged, this, [this, index] { placeAt(index).isUnmade = true; });
  places_.push_back({&design, &box, frame, photo, text});
}

void DesignSurface::showDesign(const PageDesign& design, const QPixmap& left,
                               const QPixmap& right) {
  chosen_ = design.name;
  titleFrame_->setProperty(tagProperty, toQString(design.name));
  left_->setPixmap(left);
  right_->setPixmap(right);
  for (const Place& place : places_)
    place.frame->setVisible(place.design == &design);
  update();
}

void DesignSurface::tile(const Picture& ground) {
  ground_ = QPixmap::fromImage(toImage(ground));
  update();
}

void DesignSurface::setPhoto(int index, const Picture& photo) {
  placeAt(index).photo->setPicture(photo);
  placeAt(index).isUnmade = true;
}

void DesignSurface::focusPhoto(int index) { placeAt(index).photo->setFocus(); }

DesignSurface::Place& DesignSurface::placeAt(int index) {
  return places_.at(static_cast<std::size_t>(index));
}

const DesignBox& DesignSurface::box(int index) const {
  return *places_.at(static_cast<std::size_t>(index)).box;
}

bool DesignSurface::isUnmade(const Place& place) {
  const bool isEmpty =
      place.text->text().isEmpty() && (!place.photo || place.photo->picture().isNull());
  return place.isUnmade && !isEmpty;
}

std::vector<std::string> DesignSurface::unmade() const {
  std::vector<std::string> designs;
  for (const PageDesign& design : pageDesigns()) {
    const bool isTitled = titleUnmade_ && !title_->text().isEmpty() && design.name == chosen_;
    if (isTitled || std::ranges::any_of(places_, [&](const Place& place) {
          return place.design == &design && isUnmade(place);
        }))
      designs.emplace_back(design.name);
  }
  return designs;
}

void DesignSurface::pageMade() {
  titleUnmade_ = false;
  for (Place& place : places_)
    if (place.design->name == chosen_)
      place.isUnmade = false;
}

DesignedPage DesignSurface::content() const {
  DesignedPage page;
  page.design = chosen_;
  page.texts.push_back({titleTag, toUtf8(title_->text())});
  for (const Place& place : places_) {
    if (place.frame->property(tagProperty) != titleFrame_->property(tagProperty))
      continue;
    page.texts.push_back({place.box->tag, toUtf8(place.text->text())});
    if (place.photo && !place.photo->picture().isNull())
      page.photos.push_back({place.box->tag, place.photo->picture(), photoPixels(*place.box)});
  }
  return page;
}

void DesignSurface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect page = toPixels({0, 0, designSurface.width, designSurface.height});
  painter.fillRect(page, look::paper);
  if (ground_.isNull())
    return;
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setClipRect(page);
  painter.translate(page.topLeft());
  painter.scale(scale(), scale());
  painter.drawTiledPixmap(QRectF(0, 0, page.width() / scale(), page.height() / scale()), ground_);
}

} // namespace hearthbook
